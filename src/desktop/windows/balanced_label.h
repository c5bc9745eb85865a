#pragma once

#include <QLabel>

namespace marlex {

/// The narrowest width, in pixels, in which a text takes no more lines than in `room`.
int BalancedWidth(const QFontMetrics& letters, const QString& text, int room);

/// A text that wraps into lines of similar length, so that no line is left with a single word.
class BalancedLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QRect TextArea() const;
};

}  // namespace marlex
