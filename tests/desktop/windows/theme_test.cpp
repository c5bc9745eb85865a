#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <cmath>

#include "desktop/windows/contrast.h"
#include "desktop/windows/painted_windows.h"
#include "desktop/windows/print_scheme.h"
#include "desktop/windows/texts.h"
#include "desktop/windows/theme.h"
#include "desktop/windows/theme_colors.h"

namespace marlex {
namespace {

class Theme : public ::testing::TestWithParam<Scheme> {
 protected:
  static void ExpectContrast(const char* text, const char* ground, double least) {
    EXPECT_GE(Contrast(NamedColor(text, GetParam()), NamedColor(ground, GetParam())), least)
        << text << " on " << ground;
  }
};

TEST_P(Theme, ItsTextsCanBeReadOnEveryGroundThatTheyHave) {
  for (const char* ground : {"face", "card", "tile"}) {
    for (const char* text : {"text", "muted", "strong"}) ExpectContrast(text, ground, kReadable);
  }
  for (const char* ground : {"button", "button-lit", "button-down"})
    ExpectContrast("text", ground, kReadable);
  for (const char* ground : {"accent", "accent-lit", "accent-down", "ready", "alarm", "fired"})
    ExpectContrast("on-accent", ground, kReadable);
  ExpectContrast("on-signal", "live", kReadable);
  ExpectContrast("notice-text", "notice", kReadable);
  ExpectContrast("strong", "menu-lit", kReadable);
  for (const char* ground : {"on", "on-lit"}) ExpectContrast("on-text", ground, kReadable);
  for (const char* ground : {"fed", "wait"}) ExpectContrast("text", ground, kReadable);
  // A disabled part says what could be done at another time.
  for (const char* ground : {"off", "card", "tile"}) ExpectContrast("off-text", ground, kVisible);
}

TEST_P(Theme, ItsMarksAndItsFocusCanBeSeen) {
  for (const char* ground : {"card", "tile", "button", "face"}) {
    ExpectContrast("focus", ground, kVisible);
    for (const char* line :
         {"mark-line", "button-line", "button-line-lit", "wait-line", "fed-line"})
      ExpectContrast(line, ground, kVisible);
    ExpectContrast("glyph", ground, kVisible);
    ExpectContrast("accent-line", ground, kVisible);
  }
}

/// How far apart two colours are, in their three parts.
double Distance(const QColor& one, const QColor& other) {
  return std::hypot(one.red() - other.red(), one.green() - other.green(),
                    one.blue() - other.blue());
}

TEST_P(Theme, TheRowThatFiredLastIsNoButtonToPress) {
  const QColor fired = NamedColor("fired", GetParam());
  for (const char* other : {"accent", "accent-lit", "live", "alarm", "on"})
    EXPECT_GE(Distance(fired, NamedColor(other, GetParam())), 60) << other;
}

/// Texts that get their coloured background from the style sheet alone.
TEST_P(Theme, EachRuleThatNamesBothColoursKeepsThemApart) {
  QFile sheet(":/theme.qss");
  ASSERT_TRUE(sheet.open(QIODevice::ReadOnly));
  const QString rules = Coloured(QString::fromUtf8(sheet.readAll()), GetParam());
  EXPECT_FALSE(rules.contains('@'));
  static const QRegularExpression rule("([^{}]+)\\{([^{}]*)\\}");
  static const QRegularExpression text("(?<![-\\w])color: (#\\w{6})");
  static const QRegularExpression ground("background: (#\\w{6})");
  int judged = 0;
  for (auto at = rule.globalMatch(rules); at.hasNext();) {
    const QRegularExpressionMatch found = at.next();
    const auto textFound = text.match(found.captured(2));
    const auto groundFound = ground.match(found.captured(2));
    const bool isOff = found.captured(1).contains("disabled");
    if (isOff || !textFound.hasMatch() || !groundFound.hasMatch()) continue;
    EXPECT_GE(Contrast(QColor(textFound.captured(1)), QColor(groundFound.captured(1))), kReadable)
        << found.captured(0).toStdString();
    ++judged;
  }
  EXPECT_GE(judged, 5);
}

INSTANTIATE_TEST_SUITE_P(Of, Theme, ::testing::Values(Scheme::Light, Scheme::Dark),
                         ::testing::PrintToStringParamName());

TEST(DarkTheme, ComesWithADarkDesktopAndStaysLightOtherwise) {
  EXPECT_EQ(SchemeOf(PaletteOf(Scheme::Light)), Scheme::Light);
  EXPECT_EQ(SchemeOf(PaletteOf(Scheme::Dark)), Scheme::Dark);
  QApplication::setPalette(QPalette(QColor(0x30, 0x30, 0x30)));
  {
    PaintedWindows windows;
    windows.ShowMain();
    EXPECT_EQ(ShownColor(kButtonFace), NamedColor("face", Scheme::Dark));
    const QImage picture = windows.Screen.Main().grab().toImage();
    EXPECT_LT(picture.pixelColor(picture.width() / 2, 3).lightness(), 80);
  }
  QApplication::setPalette(PaletteOf(Scheme::Light));
  PaintedWindows windows;
  EXPECT_EQ(ShownColor(kButtonFace), NamedColor("face", Scheme::Light));
}

/// Counts how often a window is notified that its colours have changed.
class ColourNews : public QObject {
 public:
  int Count = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    for (const auto type : {QEvent::ApplicationPaletteChange, QEvent::StyleChange})
      Count += event->type() == type ? 1 : 0;
    return false;
  }
};

/// The main window with a conflict, on a desktop whose colours change.
struct ChangingWindows : PaintedWindows {
  ChangingWindows() {
    Forms.frmMain.Load();
    Texts().Fill(Forms);
    FillSchedule(Forms.frmMain.grdSchedule, 2);
    Forms.frmMain.lblConflict.Visible = true;
    Forms.frmMain.lblConflict.BackColor = kRed;
    ShowMain();
    Screen.Main().installEventFilter(&News);
  }
  ~ChangingWindows() { QApplication::setPalette(PaletteOf(Scheme::Light)); }

  void Change(Scheme scheme) {
    QApplication::setPalette(QPalette(scheme == Scheme::Dark ? QColor("#303030") : Qt::lightGray));
    Settle();
  }

  void ExpectColoursOf(Scheme scheme) {
    const auto named = [scheme](const char* name) {
      return NamedColor(name, scheme).name().toStdString();
    };
    const QImage ground = Screen.Main().grab().toImage();
    EXPECT_EQ(ground.pixelColor(2, ground.height() - 2).name().toStdString(), named("face"));
    const QImage note = Find<QLabel>("lblConflict").grab().toImage();
    EXPECT_EQ(note.pixelColor(6, note.height() / 2).name().toStdString(), named("alarm"));
    auto& table = Find<QTableView>("grdSchedule");
    const QPoint cell = table.visualRect(table.model()->index(0, 0)).topLeft() + QPoint(3, 3);
    EXPECT_EQ(table.viewport()->grab().toImage().pixelColor(cell).name().toStdString(),
              named("card"));
    const QIcon stop = Find<QPushButton>("cmdStop").icon();
    EXPECT_EQ(stop.pixmap(24).toImage().pixelColor(12, 12).name().toStdString(), named("glyph"));
  }

  ColourNews News;
};

TEST(DarkTheme, ComesAndGoesWithTheDesktopWhileTheProgramRuns) {
  ChangingWindows windows;
  windows.ExpectColoursOf(Scheme::Light);
  constexpr int kDays = 5;
  std::vector<qsizetype> objects;
  for (int day = 0; day < kDays; ++day) {
    for (const Scheme scheme : {Scheme::Dark, Scheme::Light}) {
      windows.Change(scheme);
      windows.ExpectColoursOf(scheme);
    }
    objects.push_back(windows.Screen.Main().findChildren<QObject*>().size());
  }
  // The toolkit may hold one for a moment; a leak would add one each day.
  EXPECT_LE(objects.back() - objects.front(), 1);
}

TEST(DarkTheme, ComesOnceAndThenThereIsPeace) {
  ChangingWindows windows;
  windows.Change(Scheme::Dark);
  EXPECT_GT(windows.News.Count, 0);
  EXPECT_LE(windows.News.Count, 4);
  windows.News.Count = 0;
  QTest::qWait(100);
  EXPECT_EQ(windows.News.Count, 0);
}

TEST(DarkTheme, GoesWhenTheDesktopItselfIsLightAgain) {
  ChangingWindows windows;
  windows.Change(Scheme::Dark);
  QEvent change(QEvent::ThemeChange);
  QApplication::sendEvent(&windows.Screen.Main(), &change);
  windows.Settle();
  windows.ExpectColoursOf(Scheme::Light);
  windows.Change(Scheme::Dark);
  windows.ExpectColoursOf(Scheme::Dark);
}

TEST(ThemeColors, ANameThatTheThemeHasNotIsRefused) {
  EXPECT_THROW(NamedColor("gren", Scheme::Light), RuntimeFailure);
  EXPECT_THROW(Coloured("QLabel { color: @gren; }", Scheme::Dark), RuntimeFailure);
}

}  // namespace
}  // namespace marlex
