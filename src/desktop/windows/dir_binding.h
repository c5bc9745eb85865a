#pragma once

#include "controls/file_lists.h"
#include "desktop/windows/list_binding.h"

namespace marlex {

/// Shows a tree of directories. Right arrow opens the selected directory, as a double-click does;
/// left arrow opens the parent of the open one. Enter is not handled, so that it presses the OK
/// button of the window.
class DirBinding : public ListBinding {
 public:
  DirBinding(DirListBox& tree, QListView& view, Hand& hand);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  DirListBox& Tree;
  QListView& View;
  Hand& Operator;
};

}  // namespace marlex
