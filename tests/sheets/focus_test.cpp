#include <gtest/gtest.h>

#include <set>

#include "desktop/windows/contrast.h"
#include "desktop/windows/theme_colors.h"
#include "sheets/scenes.h"
#include "sheets/sheet.h"

namespace marlex {
namespace {

constexpr int kSurroundings = 10;

/// A kind of part: parts of one kind have one look.
QString KindOf(const QWidget& part) {
  const auto* button = qobject_cast<const QAbstractButton*>(&part);
  return QString(part.metaObject()->className()) + " " + part.property("face").toString() +
         (button && button->isChecked() ? " down" : "");
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

/// Pixels whose change can be seen.
int VisibleChanges(const QImage& without, const QImage& with) {
  int changes = 0;
  for (int y = 0; y < with.height(); ++y) {
    for (int x = 0; x < with.width(); ++x)
      changes += Contrast(without.pixelColor(x, y), with.pixelColor(x, y)) >= kVisible;
  }
  return changes;
}

/// At least two lines along the part's shorter side change.
void ExpectVisibleChange(const QWidget& part, const QPixmap& without, const QPixmap& with) {
  const double shorter = std::min(part.width(), part.height()) * with.devicePixelRatio();
  EXPECT_GE(VisibleChanges(without.toImage(), with.toImage()), 2 * shorter)
      << part.objectName().toStdString();
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
    ExpectVisibleChange(*part, without, with);
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
