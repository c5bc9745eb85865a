#include "desktop/windows/reader_names.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <map>
#include <vector>

#include "desktop/windows/card.h"
#include "desktop/windows/weekday_header.h"

namespace marlex {
namespace {

constexpr int kDays = 7;

bool IsWordless(const QWidget& widget) {
  if (auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text().isEmpty();
  if (qobject_cast<const QScrollBar*>(&widget)) return false;
  return qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
         qobject_cast<const QAbstractItemView*>(&widget) ||
         qobject_cast<const QAbstractSlider*>(&widget);
}

/// The text that a button shows.
QString WordsOf(const QWidget& widget) {
  auto* button = qobject_cast<const QAbstractButton*>(&widget);
  return button ? button->text().replace("&&", "&") : QString();
}

/// The grid below `layout` that contains the widget.
QGridLayout* GridOf(QLayout* layout, QWidget& widget) {
  for (int item = 0; layout && item < layout->count(); ++item) {
    if (layout->itemAt(item)->widget() == &widget) return qobject_cast<QGridLayout*>(layout);
    if (QGridLayout* found = GridOf(layout->itemAt(item)->layout(), widget)) return found;
  }
  return nullptr;
}

/// Text of a label, or of a check box, that describes what is beside or below it.
QString HeadingAt(const QGridLayout& grid, int row, int column) {
  QLayoutItem* item = grid.itemAtPosition(row, column);
  QWidget* widget = item ? item->widget() : nullptr;
  if (auto* label = qobject_cast<QLabel*>(widget)) return label->text();
  auto* box = qobject_cast<QCheckBox*>(widget);
  return box ? WordsOf(*box) : QString();
}

/// Text of the label whose buddy is the widget.
QString NameByLabel(const QWidget& widget, const QWidget& window) {
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    if (label->buddy() == &widget) return label->text();
  }
  return {};
}

/// The heading at the start of the widget's row, then the one above its column.
QString NameInGrid(QWidget& widget) {
  QGridLayout* grid = GridOf(widget.parentWidget()->layout(), widget);
  if (!grid) return {};
  int row = 0;
  int column = 0;
  int rows = 0;
  int columns = 0;
  grid->getItemPosition(grid->indexOf(&widget), &row, &column, &rows, &columns);
  const QString ofRow = column > 0 ? HeadingAt(*grid, row, 0) : QString();
  const QString ofColumn = row > 0 ? HeadingAt(*grid, 0, column) : QString();
  return (ofRow + " " + ofColumn).trimmed();
}

QString Placed(const QString& name, qsizetype place, qsizetype count) {
  return name + " " + QString::number(place) + "/" + QString::number(count);
}

/// Name of a weekday box, by its position below the weekday header. Two days may have the same
/// letter.
QString NameOfDay(const QWidget& widget) {
  if (widget.property("face").toString() != "day") return {};
  const int day = widget.objectName().section('_', -1).toInt();
  for (const QLabel* label : widget.parentWidget()->findChildren<QLabel*>()) {
    if (dynamic_cast<const WeekdayHeader*>(label))
      return Placed(label->text().simplified().section(' ', day, day), day + 1, kDays);
  }
  return {};
}

/// Removes a running clock, which would make a title a new name each second.
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

/// The focusable widgets of a window, by the text that identifies them.
using Named = std::map<QString, std::vector<QWidget*>>;

Named ByWords(const QWidget& window) {
  Named found;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const bool isOwn = !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_");
    const QString words = WordsOf(*widget);
    if (isOwn && (!words.isEmpty() || IsWordless(*widget))) found[words].push_back(widget);
  }
  return found;
}

/// A button whose text no other shares is identified by that alone; everything else also by what
/// surrounds it.
Named ByName(const QWidget& window) {
  Named found;
  for (const auto& [words, widgets] : ByWords(window)) {
    const bool isAlone = !words.isEmpty() && widgets.size() == 1;
    for (QWidget* widget : widgets) {
      const QString around = isAlone ? QString() : NameOf(*widget, window);
      found[(around + " " + words).trimmed()].push_back(widget);
    }
  }
  return found;
}

/// A screen reader announces a combo box by its entry; the description says what it is for.
void SetName(QWidget& widget, const QString& name) {
  if (name.isEmpty() || name == widget.accessibleName()) return;
  widget.setAccessibleName(name);
  if (qobject_cast<QComboBox*>(&widget)) widget.setAccessibleDescription(name);
}

}  // namespace

void NameForReaders(QWidget& window) {
  for (const auto& [name, widgets] : ByName(window)) {
    const auto count = static_cast<qsizetype>(widgets.size());
    qsizetype place = 0;
    for (QWidget* widget : widgets)
      SetName(*widget, count > 1 && !name.isEmpty() ? Placed(name, ++place, count) : name);
  }
}

}  // namespace marlex
