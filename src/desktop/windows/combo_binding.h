#pragma once

#include <QComboBox>

#include "controls/list_box.h"
#include "desktop/windows/binding.h"

namespace marlex {

/// Shows a list box as a drop-down box, which is empty while nothing is selected.
class ComboBinding : public QObject, public WidgetBinding {
 public:
  ComboBinding(ListBox& list, QComboBox& widget, Hand& hand);

  void Paint() override;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  ListBox& List;
  QComboBox& Widget;
};

}  // namespace marlex
