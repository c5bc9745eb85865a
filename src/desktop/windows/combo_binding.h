#pragma once

#include <QComboBox>

#include "controls/list_box.h"
#include "desktop/windows/binding.h"

namespace marlex {

/// A list as a box that opens; without a selection it is empty.
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
