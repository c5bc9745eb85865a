#include <gtest/gtest.h>

#include <QFile>
#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>

#include "desktop/windows/theme.h"
#include "i18n/languages.h"
#include "i18n/string_blocks.h"
#include "places.h"

namespace marlex {
namespace {

/// A font family that every installation has, since the project's package list includes it.
struct InstalledFamily {
  const char* Package;
  const char* Name;
};

constexpr InstalledFamily kInstalled[] = {{"fonts-roboto-unhinted", "Roboto"},
                                          {"fonts-dejavu-core", "DejaVu Sans"}};

constexpr const char* kMarks = "\u25B8\u2026!";  // of the table, and where a name is shortened

QByteArrayList PackageList() {
  QFile list(MARLEX_SOURCE_DIR "/packages.txt");
  EXPECT_TRUE(list.open(QIODevice::ReadOnly));
  return list.readAll().split('\n');
}

class InstalledFonts {
 public:
  InstalledFonts() {
    for (const InstalledFamily& family : kInstalled)
      Fonts.append(QRawFont::fromFont(QFont(family.Name)));
  }

  /// The letters of a text that no installed font has.
  std::string MissingLetters(const std::string& text) const {
    QString missing;
    for (const uint letter : QString::fromStdString(text).toUcs4()) {
      const bool isThere = std::any_of(Fonts.begin(), Fonts.end(), [letter](const QRawFont& font) {
        return font.supportsCharacter(letter);
      });
      if (!isThere) missing += QString::number(letter, 16) + " ";
    }
    return missing.toStdString();
  }

 private:
  QList<QRawFont> Fonts;
};

/// Number of glyphs in a text that are missing even in the fallback fonts of the theme's font.
int Boxes(const QString& text) {
  QTextLayout layout(text, QApplication::font());
  layout.beginLayout();
  layout.createLine();
  layout.endLayout();
  int boxes = 0;
  for (const QGlyphRun& run : layout.glyphRuns()) boxes += run.glyphIndexes().count(0);
  return boxes;
}

TEST(Letters, TheThemeAsksForTheFamiliesThatAreInstalled) {
  const Theme theme(*qApp);
  const QByteArrayList packages = PackageList();
  for (const InstalledFamily& family : kInstalled) {
    EXPECT_TRUE(packages.contains(family.Package)) << family.Package;
    EXPECT_TRUE(QApplication::font().families().contains(family.Name)) << family.Name;
    EXPECT_EQ(QRawFont::fromFont(QFont(family.Name)).familyName().toStdString(), family.Name);
  }
}

TEST(Letters, TheInstalledFamiliesHaveThoseOfEveryLanguage) {
  const Theme theme(*qApp);
  const InstalledFonts fonts;
  EXPECT_EQ(fonts.MissingLetters(kMarks), "");
  EXPECT_NE(fonts.MissingLetters("\u0E01"), "");  // of a language that the program does not have
  for (const Language& language : kLanguageTable) {
    for (const StringEntry& entry : StringsOf(language.Name)) {
      const std::string text(entry.Text);
      EXPECT_EQ(fonts.MissingLetters(text), "") << language.Name << " " << entry.Id;
      EXPECT_EQ(Boxes(QString::fromStdString(text)), 0) << language.Name << " " << entry.Id;
    }
  }
  EXPECT_GT(Boxes(QString::fromUcs4(U"\U0010FFFD")), 0);
}

}  // namespace
}  // namespace marlex
