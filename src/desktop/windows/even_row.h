#pragma once

#include <QLayout>
#include <QWidget>

namespace marlex {

/// Width of a row of cells, or of a grid, whose columns have equal stretch: they are all as wide as
/// the widest needs to be. 0 for any other layout.
int EvenWidth(const QLayout* layout);

/// Keeps the cells of its row equally wide, however long their words are.
class EvenRow : public QWidget {
 public:
  using QWidget::QWidget;

  QSize minimumSizeHint() const override;
};

}  // namespace marlex
