#include "sheets/readers.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace marlex {
namespace {

/// The current entry, for a combo box.
QString NameOf(QWidget& widget) {
  return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

/// What a screen reader says about the widget with the keyboard focus: its name, or its description
/// for a combo box.
QString Announced(QWidget& widget) {
  if (!qobject_cast<QComboBox*>(&widget)) return NameOf(widget);
  return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Description);
}

/// Parts of a window that can have the keyboard focus.
std::vector<QWidget*> Stops(const QWidget& window) {
  std::vector<QWidget*> stops;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const QString name = widget->objectName();
    const bool isOwn = !name.isEmpty() && !name.startsWith("qt_");
    if (isOwn && widget->isVisible() && (widget->focusPolicy() & Qt::TabFocus))
      stops.push_back(widget);
  }
  return stops;
}

}  // namespace

std::size_t ExpectNamedUniquely(const QWidget& window) {
  std::map<QString, QString> named;
  const std::vector<QWidget*> stops = Stops(window);
  for (QWidget* stop : stops) {
    EXPECT_NE(Announced(*stop).toStdString(), "") << stop->objectName().toStdString();
    QString& first = named[Announced(*stop)];
    EXPECT_EQ(first.toStdString(), "")
        << stop->objectName().toStdString() << " is " << Announced(*stop).toStdString();
    first = stop->objectName();
  }
  return stops.size();
}

}  // namespace marlex
