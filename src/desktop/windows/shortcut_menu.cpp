#include "desktop/windows/shortcut_menu.h"

#include <QStyleOption>

namespace marlex {

namespace {

constexpr int kMoreRoom = 16;  // taken from the right margin that the style sheet gives each item

}  // namespace

/// The style places the shortcuts by the width reserved for the longest one; reserving less moves
/// them to the right.
void ShortcutMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
  QMenu::initStyleOption(option, action);
  if (option->reservedShortcutWidth > 0) option->reservedShortcutWidth -= kMoreRoom;
}

}  // namespace marlex
