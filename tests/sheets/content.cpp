#include "sheets/content.h"

#include <gtest/gtest.h>

#include <QtWidgets>

#include "controls/grid.h"
#include "controls/list_box.h"
#include "controls/widgets.h"
#include "desktop/windows/shown_text.h"

namespace marlex {
namespace {

void ExpectText(const QString& shown, const QString& held) {
  EXPECT_EQ(shown.toStdString(), held.toStdString());
}

/// The texts of a column, one per line, whether or not they are scrolled into view.
std::string Column(const QAbstractItemModel& model, int column) {
  std::string texts;
  for (int row = 0; row < model.rowCount(); ++row)
    texts += model.index(row, column).data().toString().toStdString() + "\n";
  return texts;
}

std::string Entries(const ListBox& list) {
  std::string texts;
  for (int row = 0; row < list.ListCount(); ++row) texts += list.ShownText(row) + "\n";
  return texts;
}

std::string Cells(const Grid& grid, int column) {
  std::string texts;
  for (int row = 1; row < grid.Rows(); ++row)
    texts += ShownText(grid.TextMatrix(row, column)).toStdString() + "\n";
  return texts;
}

void ExpectTable(const Grid& grid, const QTableView& table) {
  for (int column = 0; column < Grid::kColumns; ++column) {
    EXPECT_EQ(table.isColumnHidden(column), grid.ColWidth(column) == 0) << column;
    const QVariant heading = table.model()->headerData(column, Qt::Horizontal);
    ExpectText(heading.toString(), ShownText(grid.TextMatrix(0, column)));
    EXPECT_EQ(Column(*table.model(), column), Cells(grid, column)) << column;
  }
}

void ExpectList(const ListBox& list, const QWidget& widget) {
  if (auto* box = qobject_cast<const QComboBox*>(&widget)) {
    EXPECT_EQ(Column(*box->model(), 0), Entries(list));
    EXPECT_EQ(box->currentIndex(), list.ListIndex());
    return;
  }
  const auto& view = dynamic_cast<const QListView&>(widget);
  EXPECT_EQ(Column(*view.model(), 0), Entries(list));
  EXPECT_EQ(view.currentIndex().row(), list.ListIndex());
}

/// Whether a button that can stay down should be down.
bool IsDown(const VisualControl& control) {
  if (auto* check = dynamic_cast<const CheckBox*>(&control)) return check->Value != 0;
  if (auto* option = dynamic_cast<const OptionButton*>(&control)) return option->Value();
  auto* toggle = dynamic_cast<const ToggleButton*>(&control);
  return toggle && toggle->Value;
}

void ExpectContent(const VisualControl& control, const QWidget& widget) {
  EXPECT_NE(widget.isHidden(), control.Visible.Get());
  ExpectText(widget.toolTip(), ShownToolTip(control.ToolTipText));
  if (auto* list = dynamic_cast<const ListBox*>(&control)) {
    ExpectList(*list, widget);
  } else if (auto* grid = dynamic_cast<const Grid*>(&control)) {
    ExpectTable(*grid, dynamic_cast<const QTableView&>(widget));
  } else if (auto* box = dynamic_cast<const TextBox*>(&control)) {
    EXPECT_EQ(dynamic_cast<const QLineEdit&>(widget).text().toStdString(), box->Text.Get());
  } else if (auto* slider = dynamic_cast<const Slider*>(&control)) {
    EXPECT_EQ(dynamic_cast<const QSlider&>(widget).value(), slider->Value.Get());
  } else if (auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
    ExpectText(button->text(), ShownCaption(control.Caption));
    EXPECT_EQ(button->isChecked(), IsDown(control));
  } else if (auto* frame = qobject_cast<const QGroupBox*>(&widget)) {
    ExpectText(frame->title(), ShownCaption(control.Caption));
  } else {
    ExpectText(dynamic_cast<const QLabel&>(widget).text(), ShownText(control.Caption));
  }
}

void ExpectContent(const Menu& menu, const QWidget& window) {
  const QString name = QString::fromStdString(menu.ObjectName());
  auto* submenu = window.findChild<QMenu*>(name);
  auto* action = submenu ? submenu->menuAction() : window.findChild<QAction*>(name);
  ASSERT_TRUE(action);
  ExpectText(action->text(), ShownCaption(menu.Caption));
  EXPECT_EQ(action->isVisible(), menu.Visible.Get());
  EXPECT_EQ(action->isEnabled(), menu.Enabled.Get());
  EXPECT_EQ(action->isChecked(), menu.Checked.Get());
}

}  // namespace

void ExpectContentShown(const Form& form, QWidget& window) {
  ExpectText(window.windowTitle(), ShownText(form.Caption));
  for (const Control* control : form.Controls) {
    auto* visual = dynamic_cast<const VisualControl*>(control);
    if (!visual || visual->NeverShown) continue;
    SCOPED_TRACE(form.Name + "." + control->ObjectName());
    if (auto* menu = dynamic_cast<const Menu*>(control)) {
      ExpectContent(*menu, window);
      continue;
    }
    auto* widget = window.findChild<QWidget*>(QString::fromStdString(control->ObjectName()));
    if (widget) {
      ExpectContent(*visual, *widget);
    } else {
      EXPECT_FALSE(visual->Visible) << "is to be seen, and has no widget";
    }
  }
}

}  // namespace marlex
