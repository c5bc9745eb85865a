#include <gtest/gtest.h>

#include <algorithm>
#include <map>
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
  QWidget& Part(const char* name) const { return *Window.findChild<QWidget*>(name); }

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
    ExpectEvenWidths(editor, {"RemoveKey", "RemAll_Key"});
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
    ExpectEvenWidths(editor, {"RemoveKey", "RemAll_Key", "cmdRandomize"});
  }
}

/// The size of a whole window and the areas of some of its parts.
std::pair<QSize, QList<QRect>> Measured(const std::string& scene, const char* language,
                                        const std::vector<const char*>& parts) {
  const Shown window(scene, language);
  QList<QRect> areas;
  for (const char* part : parts) areas.append(window.Area(part));
  return {window.Size(), areas};
}

TEST(GridOfWindows, AnEditorKeepsItsSizeWhenAPanelOpensInIt) {
  for (const Language& language : PaintedLanguages()) {
    const char* name = language.Name;
    EXPECT_EQ(Measured("schedule_editor", name, {"frMinutes"}),
              Measured("schedule_editor_interval", name, {"frInterval"}))
        << name;
    EXPECT_EQ(Measured("playlist_editor", name, {"Frame1"}),
              Measured("playlist_editor_times", name, {"Frame1"}))
        << name;
  }
}

int Centre(const Shown& window, const char* part) { return window.Area(part).center().y(); }

TEST(GridOfWindows, TheWeekdaysAreOnTheLineOfTheStopTimeInEveryLanguage) {
  for (const Language& language : PaintedLanguages()) {
    const Shown editor("playlist_editor_times", language.Name);
    for (const char* part : {"chkDays_0", "chkDays_6", "cmbStopMinutes", "Label2"})
      EXPECT_NEAR(Centre(editor, part), Centre(editor, "cmbStopHours"), 1)
          << part << " in " << language.Name;
  }
}

/// From the left edge of each part to that of the next.
std::vector<int> Steps(const Shown& window, const std::vector<const char*>& parts) {
  std::vector<int> steps;
  for (std::size_t part = 1; part < parts.size(); ++part)
    steps.push_back(window.Area(parts[part]).left() - window.Area(parts[part - 1]).left());
  return steps;
}

/// Pixels from the right edge of a part to the left edge of the other.
int Gap(const Shown& window, const char* part, const char* other) {
  return window.Area(other).left() - window.Area(part).right() - 1;
}

TEST(GridOfWindows, TheIntervalsAndTheirButtonsAreEvenInEveryLanguage) {
  for (const Language& language : PaintedLanguages()) {
    SCOPED_TRACE(language.Name);
    const Shown editor("schedule_editor_interval", language.Name);
    const std::vector<int> steps =
        Steps(editor, {"optInterval_2", "optInterval_5", "optInterval_10", "optInterval_15",
                       "optInterval_20", "optInterval_30"});
    for (const int step : steps) EXPECT_NEAR(step, steps.front(), 1);
    ExpectEvenWidths(editor, {"cmdOK", "cmdCancel"});
    for (const char* part : {"cmdOK", "cmdCancel"})
      EXPECT_EQ(Centre(editor, part), Centre(editor, "cmbStart")) << part;
    EXPECT_EQ(Gap(editor, "cmbStart", "cmdOK"), Gap(editor, "cmdOK", "cmdCancel"));
    EXPECT_EQ(editor.Area("cmdCancel").right(), editor.Area("txtHours").right());
  }
}

TEST(GridOfWindows, TheTransportButtonsAreUnderTheirTilesInEveryLanguage) {
  for (const Language& language : PaintedLanguages()) {
    SCOPED_TRACE(language.Name);
    const Shown window("main_music", language.Name);
    const std::vector<const char*> tiles = {"Frame2", "Frame3", "Frame1"};
    const std::vector<const char*> buttons = {"cmdPlay", "cmdSkip", "cmdStop"};
    ExpectEvenWidths(window, tiles);
    for (std::size_t column = 0; column < buttons.size(); ++column) {
      EXPECT_EQ(window.Area(buttons[column]).left(), window.Area(tiles[column]).left());
      EXPECT_EQ(window.Area(buttons[column]).right(), window.Area(tiles[column]).right());
    }
  }
}

TEST(GridOfWindows, NothingMovesWhenTheFirstSongBegins) {
  for (const Language& language : PaintedLanguages()) {
    const std::vector<const char*> parts = {"lblMP3Number", "Frame2"};
    EXPECT_EQ(Measured("main_idle", language.Name, parts),
              Measured("main_music", language.Name, parts))
        << language.Name;
  }
}

TEST(GridOfWindows, NothingMovesWhenACallBegins) {
  for (const Language& language : PaintedLanguages()) {
    const std::vector<const char*> parts = {"cmdCall", "cmdCallZone_5"};
    const auto before = Measured("main_music", language.Name, parts);
    for (const char* scene : {"main_chime", "main_call", "main_post_chime"})
      EXPECT_EQ(Measured(scene, language.Name, parts), before) << scene << " " << language.Name;
  }
}

/// Pixels between the picture of a button and its word, which is beside or below it.
int RoomBeforeWord(QWidget& button, bool isBelow) {
  QImage image = button.grab().toImage();
  const qreal ratio = image.devicePixelRatio();
  QRectF word = PaintedTexts::Of(button).first().Place;
  if (isBelow) {
    image = image.transformed(QTransform(0, 1, 1, 0, 0, 0));
    word = QTransform(0, 1, 1, 0, 0, 0).mapRect(word);
  }
  const int end = qRound(word.left() * ratio) - 1;
  const QRgb ground = image.pixel(end, image.height() / 2);
  int x = end;
  const auto isGround = [&] {
    for (int y = image.height() / 4; y < image.height() * 3 / 4; ++y) {
      if (image.pixel(x, y) != ground) return false;
    }
    return true;
  };
  while (x > 0 && isGround()) --x;
  return qRound((end - x) / ratio);
}

TEST(GridOfWindows, PictureAndWordOfAButtonKeepOneDistanceInEveryLanguage) {
  constexpr int kBeside = 8;
  constexpr int kBelow = 7;
  for (const Language& language : PaintedLanguages()) {
    const Shown window("main_music", language.Name);
    EXPECT_NEAR(RoomBeforeWord(window.Part("cmdCall"), false), kBeside, 1) << language.Name;
    for (const char* button : {"cmdPlay", "cmdSkip", "cmdStop"})
      EXPECT_NEAR(RoomBeforeWord(window.Part(button), true), kBelow, 1) << button << language.Name;
  }
}

/// The widths of the painted lines of a text, from top to bottom.
std::vector<double> LineWidths(QWidget& label) {
  std::map<int, QRectF> lines;
  for (const auto& [text, place] : PaintedTexts::Of(label)) {
    QRectF& line = lines[qRound(place.center().y() / 6)];
    line = line.united(place);
  }
  std::vector<double> widths;
  for (const auto& [height, line] : lines) widths.push_back(line.width());
  return widths;
}

TEST(GridOfWindows, NoWordIsAloneBelowALineOfSplashAndAboutBox) {
  for (const Language& language : PaintedLanguages()) {
    for (const char* scene : {"splash", "about"}) {
      const Shown window(scene, language.Name);
      for (const char* part : {"Label3", "lblNotice"}) {
        const std::vector<double> lines = LineWidths(window.Part(part));
        EXPECT_GE(lines.back(), lines.front() / 2) << scene << " in " << language.Name;
      }
    }
  }
}

TEST(GridOfWindows, TheAboutBoxAndItsButtonKeepTheirPlaceInEveryLanguage) {
  for (const Language& language : PaintedLanguages())
    EXPECT_EQ(Measured("about", language.Name, {"cmdOK"}), Measured("about", "English", {"cmdOK"}))
        << language.Name;
}

std::string TextOf(const Shown& window, const char* label) {
  return dynamic_cast<const QLabel&>(window.Part(label)).text().toStdString();
}

TEST(GridOfWindows, SplashAndAboutBoxHoldNoEnglishInAnotherLanguage) {
  for (const Language& language : PaintedLanguages()) {
    if (std::string(language.Name) == "English") continue;
    for (const char* scene : {"splash", "about"}) {
      const Shown english(scene, "English");
      const Shown window(scene, language.Name);
      for (const char* part : {"Label5", "Label6", "Label7", "Label3", "Label4", "lblNotice"}) {
        EXPECT_NE(TextOf(window, part), TextOf(english, part)) << scene << " in " << language.Name;
      }
    }
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
