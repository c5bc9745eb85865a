#include "desktop/windows/dir_binding.h"

#include <QKeyEvent>

namespace marlex {

DirBinding::DirBinding(DirListBox& tree, QListView& view, Hand& hand)
    : ListBinding(tree, view, hand), Tree(tree), View(view), Operator(hand) {}

bool DirBinding::eventFilter(QObject* object, QEvent* event) {
  const bool pressed = object == &View && event->type() == QEvent::KeyPress;
  const int key = pressed ? static_cast<QKeyEvent*>(event)->key() : 0;
  if (pressed && IsEnter(static_cast<QKeyEvent&>(*event))) return false;
  if (key != Qt::Key_Right && key != Qt::Key_Left) return ListBinding::eventFilter(object, event);
  Operator.Forward(Tree,
                   [this, key] { key == Qt::Key_Right ? Tree.OpenSelected() : Tree.OpenAbove(); });
  return true;
}

}  // namespace marlex
