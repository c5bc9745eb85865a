#include "widget_state.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QSlider>
#include <QTableView>

namespace marlex::probe {
namespace {

constexpr int kMostRows = 100;  // of a table; enough for any table of a test, and quick to compare

QString YesNo(bool value) { return value ? "yes" : "no"; }

QString Rectangle(const QRect& area) {
  return QString("%1 %2 %3 %4").arg(area.x()).arg(area.y()).arg(area.width()).arg(area.height());
}

/// The colour that covers most of a picture: the background, whatever text is on it.
QString MainColour(const QImage& picture) {
  QHash<QRgb, int> counts;
  QRgb best = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      QRgb pixel = picture.pixel(x, y);
      if (++counts[pixel] > counts.value(best)) best = pixel;
    }
  }
  return QColor(best).name();
}

bool IsLamp(const QWidget& widget) {
  return widget.objectName().startsWith("lblCurrentZone") ||
         widget.objectName().startsWith("lblBusy");
}

QString TextOf(const QWidget* widget) {
  if (auto* label = qobject_cast<const QLabel*>(widget)) return label->text();
  if (auto* button = qobject_cast<const QAbstractButton*>(widget)) return button->text();
  if (auto* frame = qobject_cast<const QGroupBox*>(widget)) return frame->title();
  if (auto* line = qobject_cast<const QLineEdit*>(widget)) return line->text();
  if (auto* combo = qobject_cast<const QComboBox*>(widget)) return combo->currentText();
  return widget->isWindow() ? widget->windowTitle() : QString();
}

/// The view keeps the heading apart from its rows; the program itself counts it as row 0.
constexpr int kHeadingRows = 1;

void ReadCells(const QTableView& table, Properties& properties) {
  const QAbstractItemModel& model = *table.model();
  properties["rows"] = QString::number(model.rowCount());
  for (int row = 0; row < std::min(model.rowCount(), kMostRows); ++row) {
    for (int column = 0; column < model.columnCount(); ++column) {
      QModelIndex index = model.index(row, column);
      QString cell = QString("cell %1 %2").arg(row + kHeadingRows).arg(column);
      properties[cell] = index.data(Qt::DisplayRole).toString();
      QVariant brush = index.data(Qt::BackgroundRole);
      if (brush.isValid()) properties[cell + " colour"] = brush.value<QBrush>().color().name();
    }
  }
}

void ReadItems(const QAbstractItemView& view, Properties& properties) {
  if (!view.model()) return;
  if (auto* table = qobject_cast<const QTableView*>(&view)) return ReadCells(*table, properties);
  properties["rows"] = QString::number(view.model()->rowCount());
  properties["row"] = QString::number(view.currentIndex().row());
  properties["entry"] = view.currentIndex().data().toString();
}

Properties Read(QWidget* widget) {
  Properties properties;
  properties["visible"] = YesNo(widget->isVisible());
  properties["enabled"] = YesNo(widget->isEnabled());
  properties["text"] = TextOf(widget);
  properties["focus"] = YesNo(widget->hasFocus());
  if (auto* button = qobject_cast<QAbstractButton*>(widget); button && button->isCheckable()) {
    properties["checked"] = YesNo(button->isChecked());
  }
  if (auto* slider = qobject_cast<QAbstractSlider*>(widget)) {
    properties["value"] = QString::number(slider->value());
  }
  if (auto* view = qobject_cast<QAbstractItemView*>(widget)) ReadItems(*view, properties);
  if (IsLamp(*widget) && widget->isVisible()) {
    properties["colour"] = MainColour(widget->grab().toImage());
  }
  return properties;
}

Properties Read(const QMessageBox& box) {
  return {{"visible", YesNo(box.isVisible())},
          {"text", box.text()},
          {"title", box.windowTitle()},
          {"icon", QString::number(box.icon())}};
}

void ReadActions(QWidget* widget, Snapshot& snapshot) {
  for (QAction* action : widget->actions()) {
    if (action->objectName().isEmpty()) continue;
    Properties& properties = snapshot[action->objectName()];
    properties["text"] = action->text();
    properties["enabled"] = YesNo(action->isEnabled());
    properties["checked"] = YesNo(action->isChecked());
  }
}

QWidget* FindBoxButton(const QString& caption) {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    auto* box = qobject_cast<QMessageBox*>(widget);
    if (!box || !box->isVisible()) continue;
    for (QAbstractButton* button : box->buttons()) {
      if (button->text().remove('&') == caption) return button;
    }
  }
  return nullptr;
}

QAction* ActionOf(const QWidget* widget, const QString& name) {
  for (QAction* action : widget->actions()) {
    bool isMenu = action->menu() && action->menu()->objectName() == name;
    if (isMenu || action->objectName() == name) return action;
  }
  return nullptr;
}

/// The window whose menu bar a menu belongs to, whether the menu is open or not.
QString WindowOf(const QWidget* widget) {
  while (widget->parentWidget()) widget = widget->parentWidget();
  return widget->objectName();
}

/// The place of a menu's title or item; a closed menu shows no items. The name may start with that
/// of its window and a dot.
QString GeometryOfAction(const QString& path) {
  const QString window = path.contains('.') ? path.section('.', 0, 0) : QString();
  const QString name = path.section('.', -1);
  for (QWidget* widget : QApplication::allWidgets()) {
    if (!widget->isVisible() || (!window.isEmpty() && WindowOf(widget) != window)) continue;
    QAction* action = ActionOf(widget, name);
    if (!action) continue;
    QRect area;
    if (auto* bar = qobject_cast<QMenuBar*>(widget)) area = bar->actionGeometry(action);
    if (auto* menu = qobject_cast<QMenu*>(widget)) area = menu->actionGeometry(action);
    if (area.isValid()) return Rectangle({widget->mapToGlobal(area.topLeft()), area.size()});
  }
  return {};
}

QString GeometryOfItem(QAbstractItemView& view, const QStringList& words) {
  bool isTable = qobject_cast<QTableView*>(&view) != nullptr;
  int row = words.at(1).toInt() - (isTable ? kHeadingRows : 0);
  int column = words.size() > 2 ? words.at(2).toInt() : 0;
  QRect area = view.visualRect(view.model()->index(row, column));
  return Rectangle({view.viewport()->mapToGlobal(area.topLeft()), area.size()});
}

}  // namespace

QString KeyOf(const QWidget* widget) {
  QString window = widget->window()->objectName();
  return widget->isWindow() ? window : window + "." + widget->objectName();
}

Snapshot TakeSnapshot() {
  Snapshot snapshot;
  for (QWidget* widget : QApplication::allWidgets()) {
    ReadActions(widget, snapshot);
    auto* box = qobject_cast<QMessageBox*>(widget);
    if (box && box->isVisible()) snapshot["QMessageBox"] = Read(*box);
    bool isNamed = !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_");
    if (isNamed && !box) snapshot[KeyOf(widget)] = Read(widget);
  }
  return snapshot;
}

QWidget* FindWidget(const QString& name) {
  if (name.startsWith("QMessageBox.")) return FindBoxButton(name.section('.', 1));
  QWidget* hidden = nullptr;
  for (QWidget* widget : QApplication::allWidgets()) {
    if (widget->objectName().isEmpty()) continue;
    if (widget->objectName() != name && KeyOf(widget) != name) continue;
    if (widget->isVisible()) return widget;
    hidden = widget;
  }
  return hidden;
}

QString GeometryOf(const QStringList& words) {
  QWidget* widget = FindWidget(words.at(0));
  if (!widget || qobject_cast<QMenu*>(widget)) return GeometryOfAction(words.at(0));
  if (!widget->isVisible()) return {};
  auto* view = qobject_cast<QAbstractItemView*>(widget);
  if (view && words.size() > 1) return GeometryOfItem(*view, words);
  return Rectangle({widget->mapToGlobal(QPoint(0, 0)), widget->size()});
}

}  // namespace marlex::probe
