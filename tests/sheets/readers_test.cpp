#include <gtest/gtest.h>

#include <map>
#include <ostream>

#include "i18n/languages.h"
#include "sheets/scenes.h"

namespace marlex {

void PrintTo(const Language& language, std::ostream* out) { *out << language.Name; }

namespace {

/// What a screen reader says about the widget with the keyboard focus: its name, or its description
/// for a combo box, whose name is its current entry.
QString Announced(QWidget& widget) {
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&widget);
  const bool opens = qobject_cast<QComboBox*>(&widget);
  return spoken->text(opens ? QAccessible::Description : QAccessible::Name);
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

class Readers : public ::testing::TestWithParam<Language> {};

TEST_P(Readers, NameEachPartOfAWindowUniquely) {
  std::size_t most = 0;
  for (const Scene& scene : Scenes()) {
    DeskOptions options = scene.Options;
    options.Language = GetParam().Name;
    ShownDesk desk(options);
    QWidget& window = scene.Reach(desk);
    std::map<QString, QString> named;
    const std::vector<QWidget*> stops = Stops(window);
    for (QWidget* stop : stops) {
      QString& first = named[Announced(*stop)];
      EXPECT_EQ(first.toStdString(), "") << scene.Name << ": " << stop->objectName().toStdString()
                                         << " is " << Announced(*stop).toStdString();
      first = stop->objectName();
    }
    most = std::max(most, stops.size());
  }
  EXPECT_GT(most, 20u);
}

INSTANTIATE_TEST_SUITE_P(Of, Readers, ::testing::ValuesIn(PaintedLanguages()),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace marlex
