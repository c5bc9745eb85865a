#include "desktop/windows/entry_painter.h"

#include <QAbstractItemView>
#include <QHelpEvent>

#include "desktop/windows/whole_text.h"

namespace marlex {

QSize EntryPainter::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  return {0, QStyledItemDelegate::sizeHint(option, index).height()};
}

bool EntryPainter::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                             const QStyleOptionViewItem& option, const QModelIndex& index) {
  // Below the last entry, the option still has the text of another one.
  if (!index.isValid()) return QStyledItemDelegate::helpEvent(event, view, option, index);
  QStyleOptionViewItem shown = option;
  initStyleOption(&shown, index);
  const QStyle& style = *view->style();
  const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, view) + 1;
  const int room =
      style.subElementRect(QStyle::SE_ItemViewItemText, &shown, view).width() - 2 * margin;
  const bool isWhole = shown.fontMetrics.horizontalAdvance(shown.text) <= room;
  return ShowWhole(*event, *view, shown.text, isWhole) ||
         QStyledItemDelegate::helpEvent(event, view, option, index);
}

}  // namespace marlex
