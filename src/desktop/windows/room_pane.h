#pragma once

#include <QWidget>

namespace marlex {

/// The content of a window, never lower than its wrapped lines need at its present width. Layouts
/// alone count a line of text that wraps as one line when they work out the smallest size of a
/// window.
class RoomPane : public QWidget {
 public:
  using QWidget::QWidget;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
};

}  // namespace marlex
