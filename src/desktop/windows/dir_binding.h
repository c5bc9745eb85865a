#pragma once

#include "controls/file_lists.h"
#include "desktop/windows/list_binding.h"

namespace marlex {

/// A tree of directories. The arrow to the right opens the selected one as a double-click does, the
/// arrow to the left the one above the open one. The enter key stays the OK of the window.
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
