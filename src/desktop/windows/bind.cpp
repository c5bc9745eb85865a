#include "desktop/windows/bind.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTableView>

#include "controls/file_lists.h"
#include "controls/grid.h"
#include "controls/list_box.h"
#include "desktop/windows/button_bindings.h"
#include "desktop/windows/card.h"
#include "desktop/windows/combo_binding.h"
#include "desktop/windows/dir_binding.h"
#include "desktop/windows/grid_binding.h"
#include "desktop/windows/list_binding.h"
#include "desktop/windows/simple_bindings.h"

namespace marlex {

namespace {

template <class T>
T& Find(QWidget& window, const Control& control) {
  // Search by `QObject`, since not every class here has Qt's meta-object information.
  for (QObject* found :
       window.findChildren<QObject*>(QString::fromStdString(control.ObjectName()))) {
    if (T* widget = dynamic_cast<T*>(found)) return *widget;
  }
  throw RuntimeFailure("The window " + control.Owner.Name + " shows no " +
                       NameOfKind(control.Kind()) + " " + control.ObjectName());
}

std::unique_ptr<Binding> BindMenu(Menu& menu, QWidget& window, Hand& hand) {
  const QString name = QString::fromStdString(menu.ObjectName());
  auto* submenu = window.findChild<QMenu*>(name);
  QAction& action = submenu ? *submenu->menuAction() : Find<QAction>(window, menu);
  return MakeBinding(menu, action, hand);
}

/// A list that the design hides is a workspace of the system, for which no window has a widget.
template <class List, class View, class ListView>
std::unique_ptr<Binding> BindList(List& list, QWidget& window, Hand& hand) {
  if (!list.Visible.DesignValue()) return nullptr;
  return std::make_unique<ListView>(list, Find<View>(window, list), hand);
}

/// Binds a control of a known kind to the widget of class `Widget`.
template <class Kind, class Widget>
std::unique_ptr<Binding> BindTo(Control& control, QWidget& window, Hand& hand) {
  return MakeBinding(static_cast<Kind&>(control), Find<Widget>(window, control), hand);
}

}  // namespace

std::unique_ptr<Binding> Bind(Control& control, QWidget& window, Hand& hand) {
  if (control.NeverShown) return nullptr;
  switch (control.Kind()) {
    case ControlKind::Label:
      return MakeBinding(static_cast<Label&>(control), Find<QLabel>(window, control));
    case ControlKind::Frame:
      return MakeBinding(static_cast<Frame&>(control), Find<Card>(window, control));
    case ControlKind::Menu:
      return BindMenu(static_cast<Menu&>(control), window, hand);
    case ControlKind::CommandButton:
      return BindTo<CommandButton, QPushButton>(control, window, hand);
    case ControlKind::ToggleButton:
      return BindTo<ToggleButton, QPushButton>(control, window, hand);
    case ControlKind::CheckBox:
      return BindTo<CheckBox, QCheckBox>(control, window, hand);
    case ControlKind::OptionButton:
      return BindTo<OptionButton, QRadioButton>(control, window, hand);
    case ControlKind::TextBox:
      return BindTo<TextBox, QLineEdit>(control, window, hand);
    case ControlKind::Slider:
      return BindTo<Slider, QSlider>(control, window, hand);
    case ControlKind::ListBox:
    case ControlKind::FileListBox:
      return BindList<ListBox, QListView, ListBinding>(static_cast<ListBox&>(control), window,
                                                       hand);
    case ControlKind::ComboBox:
    case ControlKind::DriveListBox:
      return BindList<ListBox, QComboBox, ComboBinding>(static_cast<ListBox&>(control), window,
                                                        hand);
    case ControlKind::DirListBox:
      return BindList<DirListBox, QListView, DirBinding>(static_cast<DirListBox&>(control), window,
                                                         hand);
    case ControlKind::Grid:
      return std::make_unique<GridBinding>(static_cast<Grid&>(control),
                                           Find<QTableView>(window, control), hand);
    case ControlKind::PictureBox:
      break;
    case ControlKind::Timer:
    case ControlKind::Form:
      return nullptr;
  }
  throw RuntimeFailure("The window " + control.Owner.Name + " can show no " +
                       NameOfKind(control.Kind()) + " " + control.ObjectName());
}

}  // namespace marlex
