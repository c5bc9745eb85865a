#include <gtest/gtest.h>

#include "desktop/windows/elided.h"
#include "i18n/languages.h"
#include "screen/measure.h"
#include "screen/parts.h"
#include "sheets/content.h"
#include "sheets/dark_desktop.h"
#include "sheets/readers.h"
#include "sheets/scenes.h"
#include "sheets/sheet.h"

namespace marlex {
namespace {

const Form& FormOf(const ShownDesk& desk, const QWidget& window) {
  const Windows& forms = desk.Sys->TheWindows;
  for (const Form* form :
       {static_cast<const Form*>(&forms.frmMain), static_cast<const Form*>(&forms.frmLogo),
        static_cast<const Form*>(&forms.frmAbout), static_cast<const Form*>(&forms.frmSettings),
        static_cast<const Form*>(&forms.TheWavWindow), static_cast<const Form*>(&forms.frmPlaylist),
        static_cast<const Form*>(&forms.frmChimeSelect), static_cast<const Form*>(&forms.frmDirSel),
        static_cast<const Form*>(&forms.frmlangSel)}) {
    if (QString::fromStdString(form->Name) == window.objectName()) return *form;
  }
  throw RuntimeFailure("No form " + window.objectName().toStdString());
}

/// Nothing is lost while the parts of the main window grow with it, and it shrinks again.
void ExpectWholeAtEverySize(ShownDesk& desk, QWidget& window) {
  constexpr QSize kWhereItGrows(1280, 875);
  window.setUpdatesEnabled(false);  // painting takes longer than the layout
  for (const QSize size : {kWhereItGrows, kLargeScreen, kSmallScreen}) {
    SCOPED_TRACE(std::to_string(size.width()) + " wide");
    window.resize(size);
    desk.Settle();
    EXPECT_EQ(window.size(), size);
    ExpectNothingClipped(window);
  }
}

/// Brings the desk to the scene in a language, measures its window, and saves its picture under
/// `name`.
QPixmap Paint(const Scene& scene, const char* language, const QString& name) {
  SCOPED_TRACE(scene.Name + " in " + language);
  DeskOptions options = scene.Options;
  options.Language = language;
  ShownDesk desk(options);
  QWidget& window = scene.Reach(desk);
  ExpectNothingClipped(window);
  const std::size_t stops = ExpectNamedUniquely(window);
  if (!qobject_cast<QMenu*>(&window)) {
    EXPECT_TRUE(window.isVisible());
    ExpectContentShown(FormOf(desk, window), window);
  }
  if (window.objectName() == "frmMain") {
    EXPECT_EQ(window.size(), scene.MainSize);
    EXPECT_GE(stops, 5u);
    const auto& ribbon = *window.findChild<QWidget*>("paneDay");
    EXPECT_TRUE(!ribbon.isVisible() || ribbon.height() == ribbon.sizeHint().height());
  }
  QPixmap picture = window.grab();
  if (!IsDense()) {
    Keep(picture.toImage(), name + "/" + language);
    // The real program is compared with these.
    if (std::string_view(language) == "English") Keep(PartsOf(window), name + "/" + language);
  }
  if (window.objectName() == "frmMain") ExpectWholeAtEverySize(desk, window);
  return picture;
}

/// The same on a dark desktop.
QPixmap PaintDark(const Scene& scene, const char* language, const QString& name) {
  const DarkDesktop dark;
  QPixmap picture = Paint(scene, language, name + "/dark");
  EXPECT_TRUE(IsDark(picture.toImage())) << scene.Name;
  return picture;
}

class EachScene : public ::testing::TestWithParam<std::size_t> {};

/// Dark pictures are painted in English and in one other language, a different one for each scene.
TEST_P(EachScene, ShowsAndNamesAllWholeInEveryLanguageAndInTheDark) {
  const Scene& scene = Scenes()[GetParam()];
  const QString name = QString::fromStdString(scene.Name);
  const std::size_t other = 1 + GetParam() % (kLanguageTable.size() - 1);
  Sheet sheet;
  for (const Language& language : PaintedLanguages())
    sheet.Add(language.Name, Paint(scene, language.Name, name));
  for (const Language& language : {kLanguageTable.front(), kLanguageTable[other]})
    sheet.Add(language.Name, PaintDark(scene, language.Name, name));
  sheet.Save(name);
}

INSTANTIATE_TEST_SUITE_P(Of, EachScene, ::testing::Range(std::size_t(0), Scenes().size()),
                         [](const auto& scene) { return Scenes()[scene.param].Name; });

TEST(Sheets, TheMainWindowFitsASmallScreenInEveryLanguage) {
  constexpr double kThumbMm = 15;  // twice what guidelines for touch screens require of a button
  constexpr double kPixelsPerMm = 96 / 25.4;
  const Scene& scene = Scenes().front();
  for (const Language& language : PaintedLanguages()) {
    DeskOptions options = scene.Options;
    options.Language = language.Name;
    ShownDesk desk(options);
    QWidget& window = scene.Reach(desk);
    EXPECT_EQ(window.size(), kSmallScreen) << language.Name;
    const QSize size = window.findChild<QWidget*>("cmdCall")->size();
    EXPECT_GE(std::min(size.width(), size.height()), kThumbMm * kPixelsPerMm) << language.Name;
  }
}

TEST(Sheets, TheAmplifiersCallIsWholeInLettersForPassersBy) {
  const Scene& scene = SceneOf("main_conflict_takeover");
  for (const Language& language : PaintedLanguages()) {
    DeskOptions options = scene.Options;
    options.Language = language.Name;
    ShownDesk desk(options);
    auto* onAir = dynamic_cast<ElidedLabel*>(scene.Reach(desk).findChild<QLabel*>("paneOnAirName"));
    ASSERT_TRUE(onAir);
    EXPECT_EQ(onAir->ShownLine(), QString::fromStdString(desk.Text("lblHiPrio")));
    EXPECT_GE(onAir->font().pointSize(), 19) << language.Name;
  }
}

/// The name as it is painted, elided or not.
QString ShownZone(QWidget& window, int zone) {
  auto* name =
      dynamic_cast<ElidedLabel*>(window.findChild<QLabel*>("lblZoneName_" + QString::number(zone)));
  if (!name) throw RuntimeFailure("No name of zone " + std::to_string(zone));
  EXPECT_GE(name->font().pointSizeF(), 11);
  return name->ShownLine();
}

TEST(Sheets, ZoneNamesAreWholeOnASmallScreenInEveryLanguage) {
  const Scene& scene = Scenes().front();
  for (const Language& language : PaintedLanguages()) {
    DeskOptions options = scene.Options;
    options.Language = language.Name;
    ShownDesk desk(options);
    QWidget& window = scene.Reach(desk);
    EXPECT_EQ(window.size(), kSmallScreen);
    for (int zone = 0; zone < kZones; ++zone) {
      const std::string whole = desk.Main().lblZoneName[zone].Caption;
      EXPECT_EQ(ShownZone(window, zone).toStdString(), whole) << language.Name;
    }
  }
}

/// The only window that is shown before a language is chosen.
void AddLanguageDialog(bool isDark, Sheet& sheet) {
  DeskOptions options;
  options.Language = "";
  ShownDesk desk(options);
  QWidget& window = desk.Screen().LangSel();
  ASSERT_TRUE(window.isVisible());
  ExpectNothingClipped(window);
  ExpectContentShown(FormOf(desk, window), window);
  sheet.AddLook(isDark, window.grab());
}

TEST(Sheets, TheLanguageDialogIsWholeInLightAndDark) {
  Sheet sheet;
  AddLanguageDialog(false, sheet);
  const DarkDesktop dark;
  AddLanguageDialog(true, sheet);
  sheet.Save("languages");
}

}  // namespace
}  // namespace marlex
