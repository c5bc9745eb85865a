#pragma once

#include <QLabel>
#include <string>
#include <vector>

namespace marlex {

/// One calm line below the band of the main window that says what is wrong: the newest fault, and
/// how many more there are. Its tool tip, and what a screen reader reads, list up to twelve.
/// Hidden when all is well.
class FaultLine {
 public:
  /// `window` must contain the widgets of the line.
  explicit FaultLine(QWidget& window);

  /// `faults` are texts, the newest first.
  void Paint(const std::vector<std::string>& faults);

 private:
  QWidget& Box;
  QLabel& Newest;
  QLabel& More;
  std::vector<std::string> Painted;
};

}  // namespace marlex
