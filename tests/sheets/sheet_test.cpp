#include <gtest/gtest.h>

#include "desktop/windows/elided.h"
#include "desktop/windows/theme_colors.h"
#include "i18n/languages.h"
#include "places.h"
#include "screen/measure.h"
#include "sheets/content.h"
#include "sheets/scenes.h"

namespace marlex {
namespace {

constexpr int kColumns = 4;
constexpr int kGap = 12;
constexpr int kThumbnailWidth = 560;

/// Keeps a picture for people to look at: `name` is its file below the sheets of this density,
/// without its ending.
template <typename Picture>
void Keep(const Picture& picture, const QString& name) {
  const int percent = qRound(100 * qApp->devicePixelRatio());
  const QFileInfo file(QString(MARLEX_BINARY_DIR "/sheets/%1/%2.png").arg(percent).arg(name));
  EXPECT_TRUE(QDir().mkpath(file.path()) && picture.save(file.filePath())) << name.toStdString();
}

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

/// The pictures of one scene side by side, each under its language.
class Sheet {
 public:
  void Add(const QString& language, const QPixmap& picture) {
    const qreal ratio = picture.devicePixelRatio();
    const int width = qMin(kThumbnailWidth, qRound(picture.width() / ratio));
    QImage image = picture.toImage().scaledToWidth(width, Qt::SmoothTransformation);
    image.setDevicePixelRatio(1);
    Pictures.append({language, image});
  }

  void Save(const QString& name) const {
    QSize cell;
    for (const auto& [language, image] : Pictures) cell = cell.expandedTo(image.size());
    const int caption = 22;
    const int step = cell.height() + caption + kGap;
    const int rows = static_cast<int>((Pictures.size() + kColumns - 1) / kColumns);
    QImage sheet(kColumns * (cell.width() + kGap) + kGap, rows * step + kGap, QImage::Format_RGB32);
    sheet.fill(QColor(0x80, 0x88, 0x90));
    QPainter painter(&sheet);
    painter.setPen(Qt::white);
    for (int index = 0; index < Pictures.size(); ++index) {
      const int left = kGap + index % kColumns * (cell.width() + kGap);
      const int top = kGap + index / kColumns * step;
      painter.drawText(QRect(left, top, cell.width(), caption), Qt::AlignVCenter,
                       Pictures[index].first);
      painter.drawImage(left, top + caption, Pictures[index].second);
    }
    Keep(sheet, name);
  }

 private:
  QList<QPair<QString, QImage>> Pictures;
};

/// Brings the desk to the scene in a language, measures its window, and keeps its picture under
/// `name`.
QPixmap Paint(const Scene& scene, const char* language, const QString& name) {
  SCOPED_TRACE(scene.Name + " in " + language);
  DeskOptions options = scene.Options;
  options.Language = language;
  ShownDesk desk(options);
  QWidget& window = scene.Reach(desk);
  ExpectNothingClipped(window);
  if (!qobject_cast<QMenu*>(&window)) {
    EXPECT_TRUE(window.isVisible());
    ExpectContentShown(FormOf(desk, window), window);
  }
  const QPixmap picture = window.grab();
  Keep(picture, name + "/" + language);
  return picture;
}

class EachScene : public ::testing::TestWithParam<std::size_t> {};

TEST_P(EachScene, ShowsAllItsTextsWholeInEveryLanguage) {
  const Scene& scene = Scenes()[GetParam()];
  const QString name = QString::fromStdString(scene.Name);
  Sheet sheet;
  for (const Language& language : kLanguageTable)
    sheet.Add(language.Name, Paint(scene, language.Name, name));
  sheet.Save(name);
}

INSTANTIATE_TEST_SUITE_P(Of, EachScene, ::testing::Range(std::size_t(0), Scenes().size()),
                         [](const auto& scene) { return Scenes()[scene.param].Name; });

TEST(Sheets, TheMainWindowFitsASmallScreenInEveryLanguageAndHasACallKeyForAThumb) {
  constexpr double kThumbMm = 15;  // twice what guidelines for touch screens ask of any key
  constexpr double kPixelsPerMm = 96 / 25.4;
  const Scene& scene = Scenes().front();
  for (const Language& language : kLanguageTable) {
    DeskOptions options = scene.Options;
    options.Language = language.Name;
    ShownDesk desk(options);
    QWidget& window = scene.Reach(desk);
    EXPECT_EQ(window.size(), kSmallScreen) << language.Name;
    const QSize key = window.findChild<QWidget*>("cmdCall")->size();
    EXPECT_GE(std::min(key.width(), key.height()), kThumbMm * kPixelsPerMm) << language.Name;
  }
}

TEST(Sheets, ACallOfTheAmplifierIsToldWholeInLettersForThosePassingBy) {
  for (const Scene& scene : Scenes()) {
    if (scene.Name != "main_conflict_takeover") continue;
    for (const Language& language : kLanguageTable) {
      DeskOptions options = scene.Options;
      options.Language = language.Name;
      ShownDesk desk(options);
      auto* told =
          dynamic_cast<ElidedLabel*>(scene.Reach(desk).findChild<QLabel*>("paneOnAirName"));
      ASSERT_TRUE(told);
      EXPECT_EQ(told->ShownLine(), QString::fromStdString(desk.Text("lblHiPrio")));
      EXPECT_GE(told->font().pointSize(), 19) << language.Name;
    }
  }
}

/// The one window that comes before any language.
TEST(Sheets, TheLanguageDialogIsWhole) {
  DeskOptions options;
  options.Language = "";
  ShownDesk desk(options);
  QWidget& window = desk.Screen().LangSel();
  ASSERT_TRUE(window.isVisible());
  ExpectNothingClipped(window);
  ExpectContentShown(FormOf(desk, window), window);
  Keep(window.grab(), "languages");
}

TEST(DarkSheet, EveryWindowHasADarkFace) {
  QApplication::setPalette(PaletteOf(Scheme::Dark));
  Sheet sheet;
  for (const Scene& scene : Scenes()) {
    const QString name = QString::fromStdString(scene.Name);
    const QPixmap picture = Paint(scene, "English", "dark/" + name);
    EXPECT_LT(QColor(picture.toImage().pixel(2, 2)).lightness(), 90) << scene.Name;
    sheet.Add(name, picture);
  }
  sheet.Save("dark");
  QApplication::setPalette(PaletteOf(Scheme::Light));
}

}  // namespace
}  // namespace marlex
