#include "desktop/windows/shortcut_menu.h"

#include <QStyleOption>

namespace marlex {

namespace {

constexpr int kMoreRoom = 16;  // of what the style sheet leaves at the right of every item

}  // namespace

/// The style begins a shortcut as far from the right as it is told that the longest one needs.
void ShortcutMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
  QMenu::initStyleOption(option, action);
  if (option->reservedShortcutWidth > 0) option->reservedShortcutWidth -= kMoreRoom;
}

}  // namespace marlex
