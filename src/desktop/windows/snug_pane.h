#pragma once

#include <QWidget>

namespace marlex {

/// A pane that wants no more room than it needs at least, so that where room is scarce it gives way
/// before its neighbours do.
class SnugPane : public QWidget {
 public:
  using QWidget::QWidget;

  QSize sizeHint() const override { return minimumSizeHint(); }
};

}  // namespace marlex
