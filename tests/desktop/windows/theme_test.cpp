#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>

#include "desktop/windows/contrast.h"
#include "desktop/windows/desk.h"
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

TEST_P(Theme, ItsTextsCanBeReadOnEveryGroundThatTheyStandOn) {
  for (const char* ground : {"face", "card", "tile"}) {
    for (const char* text : {"text", "muted", "strong"}) ExpectContrast(text, ground, kReadable);
  }
  for (const char* ground : {"key", "key-lit", "key-down"})
    ExpectContrast("text", ground, kReadable);
  for (const char* ground : {"accent", "accent-lit", "accent-down", "ready", "alarm", "fired"})
    ExpectContrast("on-accent", ground, kReadable);
  ExpectContrast("on-signal", "live", kReadable);
  ExpectContrast("notice-text", "notice", kReadable);
  ExpectContrast("strong", "menu-lit", kReadable);
}

TEST_P(Theme, ItsMarksAndItsFocusCanBeSeen) {
  for (const char* ground : {"card", "tile", "key", "face"}) {
    ExpectContrast("focus", ground, kVisible);
    ExpectContrast("mark-line", ground, kVisible);
    ExpectContrast("glyph", ground, kVisible);
    ExpectContrast("accent-line", ground, kVisible);
  }
}

/// Texts that are written on a coloured ground by the style sheet alone.
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

INSTANTIATE_TEST_SUITE_P(Light, Theme, ::testing::Values(Scheme::Light));
INSTANTIATE_TEST_SUITE_P(Dark, Theme, ::testing::Values(Scheme::Dark));

TEST(DarkTheme, ComesWithADarkDesktopAndStaysLightOtherwise) {
  EXPECT_EQ(SchemeOf(PaletteOf(Scheme::Light)), Scheme::Light);
  EXPECT_EQ(SchemeOf(PaletteOf(Scheme::Dark)), Scheme::Dark);
  QApplication::setPalette(QPalette(QColor(0x30, 0x30, 0x30)));
  {
    Desk desk;
    desk.ShowMain();
    EXPECT_EQ(ShownColor(kButtonFace), NamedColor("face", Scheme::Dark));
    const QImage picture = desk.Screen.Main().grab().toImage();
    EXPECT_LT(picture.pixelColor(picture.width() / 2, 3).lightness(), 80);
  }
  QApplication::setPalette(PaletteOf(Scheme::Light));
  Desk desk;
  EXPECT_EQ(ShownColor(kButtonFace), NamedColor("face", Scheme::Light));
}

}  // namespace
}  // namespace marlex
