#include "desktop/windows/reader_names.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollBar>

#include "desktop/windows/card.h"
#include "desktop/windows/weekday_header.h"

namespace marlex {
namespace {

bool IsWordless(const QWidget& widget) {
  if (auto* key = qobject_cast<const QAbstractButton*>(&widget)) return key->text().isEmpty();
  if (qobject_cast<const QScrollBar*>(&widget)) return false;
  return qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
         qobject_cast<const QAbstractItemView*>(&widget) ||
         qobject_cast<const QAbstractSlider*>(&widget);
}

/// Grid that a widget stands in, below `layout`.
QGridLayout* GridOf(QLayout* layout, QWidget& widget) {
  for (int item = 0; layout && item < layout->count(); ++item) {
    if (layout->itemAt(item)->widget() == &widget) return qobject_cast<QGridLayout*>(layout);
    if (QGridLayout* found = GridOf(layout->itemAt(item)->layout(), widget)) return found;
  }
  return nullptr;
}

QString LabelAt(const QGridLayout& grid, int row, int column) {
  QLayoutItem* item = grid.itemAtPosition(row, column);
  auto* label = item ? qobject_cast<QLabel*>(item->widget()) : nullptr;
  return label ? label->text() : QString();
}

/// The label that leads to the widget.
QString NameByLabel(const QWidget& widget, const QWidget& window) {
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    if (label->buddy() == &widget) return label->text();
  }
  return {};
}

/// Label at the beginning of the widget's row and the one over its column.
QString NameInGrid(QWidget& widget) {
  QGridLayout* grid = GridOf(widget.parentWidget()->layout(), widget);
  if (!grid) return {};
  int row = 0;
  int column = 0;
  int rows = 0;
  int columns = 0;
  grid->getItemPosition(grid->indexOf(&widget), &row, &column, &rows, &columns);
  const QString ofRow = column > 0 ? LabelAt(*grid, row, 0) : QString();
  const QString ofColumn = row > 0 ? LabelAt(*grid, 0, column) : QString();
  return (ofRow + " " + ofColumn).trimmed();
}

/// A box of a weekday, by its place under the line of the week.
QString NameOfDay(const QWidget& widget) {
  if (widget.property("face").toString() != "day") return {};
  const int day = widget.objectName().section('_', -1).toInt();
  for (const QLabel* label : widget.parentWidget()->findChildren<QLabel*>()) {
    if (dynamic_cast<const WeekdayHeader*>(label))
      return label->text().simplified().section(' ', day, day);
  }
  return {};
}

/// A title in which a clock runs would be a new name each second.
QString WithoutClock(QString title) {
  static const QRegularExpression clock("^\\d+:\\d\\d:\\d\\d\\s*");
  return title.remove(clock);
}

QString NameOfFrame(const QWidget& widget) {
  for (QWidget* frame = widget.parentWidget(); frame; frame = frame->parentWidget()) {
    auto* card = dynamic_cast<Card*>(frame);
    if (card && !card->title().isEmpty()) return WithoutClock(card->title());
  }
  return {};
}

QString NameOf(QWidget& widget, const QWidget& window) {
  for (const QString& name :
       {NameByLabel(widget, window), NameOfDay(widget), NameInGrid(widget), NameOfFrame(widget)}) {
    if (!name.isEmpty()) return name;
  }
  return {};
}

}  // namespace

void NameForReaders(QWidget& window) {
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->objectName().startsWith("qt_") || !IsWordless(*widget)) continue;
    const QString name = NameOf(*widget, window);
    if (!name.isEmpty() && name != widget->accessibleName()) widget->setAccessibleName(name);
  }
}

}  // namespace marlex
