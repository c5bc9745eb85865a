#pragma once

#include <QStyledItemDelegate>

namespace marlex {

/// Paints the entries of a list within the width of the list: a name that is too long is shortened,
/// and its tool tip shows it whole.
class EntryPainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
};

}  // namespace marlex
