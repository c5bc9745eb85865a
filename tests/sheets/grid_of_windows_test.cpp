#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "i18n/languages.h"
#include "screen/painted_texts.h"
#include "sheets/scenes.h"

namespace marlex {
namespace {

/// Shows a scene in one language for as long as the object lives.
class Shown {
 public:
  Shown(const std::string& scene, const char* language)
      : Place(SceneOf(scene)), Desk(In(Place.Options, language)), Window(Place.Reach(Desk)) {}

  QRect Area(const char* name) const {
    const auto* part = Window.findChild<QWidget*>(name);
    if (!part) throw RuntimeFailure(std::string("No widget ") + name);
    return {part->mapTo(&Window, QPoint(0, 0)), part->size()};
  }
  QSize Size() const { return Window.size(); }
  QList<PaintedTexts::Piece> Texts() const { return PaintedTexts::Of(Window); }

 private:
  static DeskOptions In(DeskOptions options, const char* language) {
    options.Language = language;
    return options;
  }

  const Scene& Place;
  ShownDesk Desk;
  QWidget& Window;
};

/// Equal up to one pixel, which may be left over when the width is divided.
void ExpectEvenWidths(const Shown& window, const std::vector<const char*>& parts) {
  for (const char* part : parts)
    EXPECT_NEAR(window.Area(part).width(), window.Area(parts.front()).width(), 1) << part;
}

TEST(GridOfWindows, TheColumnsOfTheScheduleEditorAreEvenInEveryLanguage) {
  for (const Language& language : PaintedLanguages()) {
    SCOPED_TRACE(language.Name);
    const Shown editor("schedule_editor", language.Name);
    ExpectEvenWidths(editor, {"AvailWavs", "SelectedWavs", "PrevKey"});
    EXPECT_EQ(editor.Area("frMessageSelection").bottom(), editor.Area("frMode").bottom());
    EXPECT_EQ(editor.Area("AvailWavs").bottom(), editor.Area("PrevKey").bottom());
    EXPECT_EQ(editor.Area("SelectedWavs").left(), editor.Area("RemoveKey").left());
    EXPECT_EQ(editor.Area("SelectedWavs").right(), editor.Area("RemAll_Key").right());
  }
}

TEST(GridOfWindows, TheColumnsOfThePlaylistEditorAreEvenInEveryLanguage) {
  for (const Language& language : PaintedLanguages()) {
    SCOPED_TRACE(language.Name);
    const Shown editor("playlist_editor", language.Name);
    ExpectEvenWidths(editor, {"AvailMP3s", "cmdSelectAll", "SelectedMP3s", "PrevKey"});
    EXPECT_EQ(editor.Area("cmdSelectAll").bottom(), editor.Area("PrevKey").bottom());
    EXPECT_EQ(editor.Area("SelectedMP3s").left(), editor.Area("RemoveKey").left());
    EXPECT_EQ(editor.Area("SelectedMP3s").right(), editor.Area("cmdRandomize").right());
  }
}

/// The size of a whole window and the area of one of its parts.
std::pair<QSize, QRect> Measured(const std::string& scene, const char* language, const char* part) {
  const Shown window(scene, language);
  return {window.Size(), window.Area(part)};
}

TEST(GridOfWindows, AnEditorKeepsItsSizeWhenAPanelOpensInIt) {
  for (const Language& language : PaintedLanguages()) {
    const char* name = language.Name;
    EXPECT_EQ(Measured("schedule_editor", name, "frMinutes"),
              Measured("schedule_editor_interval", name, "frInterval"))
        << name;
    EXPECT_EQ(Measured("playlist_editor", name, "Frame1"),
              Measured("playlist_editor_times", name, "Frame1"))
        << name;
  }
}

/// Pixels between a shortcut and the text of its item.
double RoomBefore(const PaintedTexts::Piece& shortcut, const QList<PaintedTexts::Piece>& texts) {
  double end = 0;
  for (const auto& [text, place] : texts) {
    const bool isBefore = place.top() < shortcut.Place.bottom() &&
                          place.bottom() > shortcut.Place.top() &&
                          place.left() < shortcut.Place.left();
    if (isBefore) end = std::max(end, place.right());
  }
  return shortcut.Place.left() - end;
}

TEST(GridOfWindows, AShortcutIsApartFromItsItemInEveryLanguage) {
  constexpr double kApart = 24;
  for (const Language& language : PaintedLanguages()) {
    const auto texts = Shown("menu_file", language.Name).Texts();
    int shortcuts = 0;
    for (const PaintedTexts::Piece& piece : texts) {
      if (!piece.Text.startsWith("Ctrl+")) continue;
      ++shortcuts;
      EXPECT_GE(RoomBefore(piece, texts), kApart) << language.Name;
    }
    EXPECT_EQ(shortcuts, 2) << language.Name;
  }
}

TEST(GridOfWindows, TheVolumesAreEquallyWideInEveryLanguage) {
  for (const Language& language : PaintedLanguages()) {
    SCOPED_TRACE(language.Name);
    const Shown settings("settings", language.Name);
    ExpectEvenWidths(settings, {"frMasterVol", "frMusicVol", "frMesVolume", "frMicroVolume"});
  }
}

}  // namespace
}  // namespace marlex
