#include "desktop/windows/combo_binding.h"

namespace marlex {

ComboBinding::ComboBinding(ListBox& list, QComboBox& widget, Hand& hand)
    : WidgetBinding(list, widget), List(list), Widget(widget) {
  connect(&widget, &QComboBox::activated, this, [&list, &hand](int row) {
    hand.Forward(list, [&list, row] {
      if (row < list.ListCount()) list.SetListIndex(row);
    });
  });
  widget.installEventFilter(this);
}

/// A wheel that is turned to scroll the window, with the pointer on the box by chance, must not
/// choose another entry. What stands open has a wheel of its own.
bool ComboBinding::eventFilter(QObject*, QEvent* event) {
  if (event->type() != QEvent::Wheel) return false;
  event->ignore();
  return true;
}

/// Only the hand's own choice is a signal of the box, so that nothing here looks like one. A box
/// that stands open keeps its place while its entries are the same.
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
