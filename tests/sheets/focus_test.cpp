#include <gtest/gtest.h>

#include <set>

#include "desktop/windows/theme_colors.h"
#include "sheets/scenes.h"
#include "sheets/sheet.h"

namespace marlex {
namespace {

constexpr int kSurroundings = 10;

/// A kind of part: parts of one kind have one look.
QString KindOf(const QWidget& part) {
  const auto* key = qobject_cast<const QAbstractButton*>(&part);
  return QString(part.metaObject()->className()) + " " + part.property("face").toString() +
         (key && key->isChecked() ? " down" : "");
}

/// A part of a window and a little of what is around it.
QPixmap PictureOf(QWidget& part) {
  QApplication::processEvents();
  const QRect area(part.mapTo(part.window(), QPoint()), part.size());
  const QMargins around(kSurroundings, kSurroundings, kSurroundings, kSurroundings);
  return part.window()->grab(area.marginsAdded(around) & part.window()->rect());
}

bool TakesFocus(const QWidget& part) {
  const QString name = part.objectName();
  return part.isVisible() && part.isEnabled() && (part.focusPolicy() & Qt::TabFocus) &&
         !name.isEmpty() && !name.startsWith("qt_");
}

/// Shows one part of each kind with the keyboard focus, which must show.
void AddKinds(QWidget& window, std::set<QString>& seen, Sheet& sheet) {
  window.activateWindow();
  for (QWidget* part : window.findChildren<QWidget*>()) {
    if (!TakesFocus(*part) || !seen.insert(KindOf(*part)).second) continue;
    if (QWidget* focused = window.focusWidget()) focused->clearFocus();
    const QPixmap without = PictureOf(*part);
    part->setFocus(Qt::TabFocusReason);
    const QPixmap with = PictureOf(*part);
    EXPECT_NE(with.toImage(), without.toImage()) << part->objectName().toStdString();
    sheet.Add(KindOf(*part), with);
  }
}

void ShowTheFocus(const QString& name) {
  Sheet sheet;
  std::set<QString> seen;
  for (const char* scene : {"main_music", "main_plain", "settings", "schedule_editor_interval",
                            "playlist_editor_times", "chime_picker", "directory_picker", "about"}) {
    ShownDesk desk(SceneOf(scene).Options);
    AddKinds(SceneOf(scene).Reach(desk), seen, sheet);
  }
  EXPECT_GE(seen.size(), 15u);
  sheet.Save(name);
}

TEST(Focus, ShowsOnEachKindOfPart) { ShowTheFocus("focus"); }

TEST(Focus, ShowsOnEachKindOfPartInTheDark) {
  QApplication::setPalette(PaletteOf(Scheme::Dark));
  ShowTheFocus("focus_dark");
  QApplication::setPalette(PaletteOf(Scheme::Light));
}

}  // namespace
}  // namespace marlex
