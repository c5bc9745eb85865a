#pragma once

#include <QLayout>
#include <QWidget>
#include <functional>
#include <vector>

namespace marlex {

/// The property in which a window keeps how many times larger than designed its parts are.
inline constexpr const char* kGrowthProperty = "growth";

/// Enlarges with the main window what is read from across the room or pressed in a hurry: the band,
/// the clock, the transport buttons, the zones and the call button. Lists and tables keep their
/// letters, and show more rows instead.
class Growth : public QObject {
 public:
  /// Construct before the bindings, which change the sizes of parts.
  explicit Growth(QWidget& window);

  /// To be called when the bindings have painted: only then are all parts as small as they get, and
  /// the layout, which has to ask them again, may keep the window from shrinking further.
  void TakePainted();

  /// Called after each change of size.
  std::function<void()> OnChange;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  struct Part {
    QWidget& Widget;
    QSize Smallest;
    int Highest;
  };

  /// The room between the parts of a layout: from left to right, and from top to bottom.
  struct Gap {
    QLayout& Layout;
    QSize Designed;
  };

  void Take(QWidget& area);
  void Grow(qreal factor);
  void LetShrink();
  void GrowParts(qreal factor);

  QWidget& Window;
  std::vector<Part> Parts;
  std::vector<Gap> Gaps;
  qreal Factor = 1;
  bool FreeToShrink = false;  // the layout's smallest size is that before it grew
};

}  // namespace marlex
