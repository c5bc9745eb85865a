#pragma once

#include <QMenu>

namespace marlex {

/// A menu with more space between its items and their shortcuts than the style leaves.
class ShortcutMenu : public QMenu {
 public:
  using QMenu::QMenu;

 protected:
  void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
};

}  // namespace marlex
