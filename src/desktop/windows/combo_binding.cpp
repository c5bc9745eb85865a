#include "desktop/windows/combo_binding.h"

#include <QStyledItemDelegate>

namespace marlex {

ComboBinding::ComboBinding(ListBox& list, QComboBox& widget, Hand& hand)
    : WidgetBinding(list, widget), List(list), Widget(widget) {
  connect(&widget, &QComboBox::activated, this, [&list, &hand](int row) {
    hand.Forward(list, [&list, row] {
      if (row < list.ListCount()) list.SetListIndex(row);
    });
  });
  widget.installEventFilter(this);
  // The box's own delegate ignores the style sheet.
  widget.setItemDelegate(new QStyledItemDelegate(&widget));
}

/// Scrolling the window with the wheel must not select another entry when the pointer happens to be
/// over the box. The open drop-down list handles the wheel itself.
bool ComboBinding::eventFilter(QObject*, QEvent* event) {
  if (event->type() != QEvent::Wheel) return false;
  event->ignore();
  return true;
}

/// The box emits `activated` only for the operator's choice, so nothing done here is mistaken for
/// one. An open drop-down list keeps its position as long as the entries stay the same.
void ComboBinding::Paint() {
  WidgetBinding::Paint();
  QStringList shown;
  for (int row = 0; row < Widget.count(); ++row) shown.append(Widget.itemText(row));
  QStringList entries;
  for (int row = 0; row < List.ListCount(); ++row) {
    entries.append(QString::fromStdString(List.ShownText(row)));
  }
  if (entries != shown) {
    Widget.clear();
    Widget.addItems(entries);
  }
  Widget.setCurrentIndex(List.ListIndex());
}

}  // namespace marlex
