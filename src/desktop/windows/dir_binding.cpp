#include "desktop/windows/dir_binding.h"

#include <QKeyEvent>

namespace marlex {

DriveBinding::DriveBinding(DriveListBox& drives, QComboBox& widget, Hand& hand)
    : WidgetBinding(drives, widget), Drives(drives), Widget(widget) {
  connect(&widget, &QComboBox::activated, this, [&drives, &hand](int row) {
    hand.Forward(drives, [&drives, row] {
      if (row < drives.ListCount()) drives.SetListIndex(row);
    });
  });
}

/// Only the hand's own choice is a signal of the box, so that nothing here looks like one.
void DriveBinding::Paint() {
  WidgetBinding::Paint();
  QStringList drives;
  for (int row = 0; row < Drives.ListCount(); ++row) {
    drives.append(QString::fromStdString(Drives.List(row)));
  }
  Widget.clear();
  Widget.addItems(drives);
  Widget.setCurrentIndex(Drives.ListIndex());
}

DirBinding::DirBinding(DirListBox& tree, QListView& view, Hand& hand)
    : ListBinding(tree, view, hand), Tree(tree), View(view), Operator(hand) {}

bool DirBinding::eventFilter(QObject* object, QEvent* event) {
  const bool pressed = object == &View && event->type() == QEvent::KeyPress;
  const int key = pressed ? static_cast<QKeyEvent*>(event)->key() : 0;
  if (key != Qt::Key_Right && key != Qt::Key_Left) return ListBinding::eventFilter(object, event);
  Operator.Forward(Tree,
                   [this, key] { key == Qt::Key_Right ? Tree.OpenSelected() : Tree.OpenAbove(); });
  return true;
}

}  // namespace marlex
