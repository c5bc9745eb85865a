#include <gtest/gtest.h>

#include <QGlyphRun>
#include <QTextLayout>

#include "desktop/windows/theme.h"
#include "i18n/languages.h"
#include "i18n/string_blocks.h"

namespace marlex {
namespace {

/// Number of a text's letters for which no font has a picture.
int MissingLetters(const QString& text, const QFont& font) {
  QTextLayout layout(text, font);
  layout.beginLayout();
  layout.createLine();
  layout.endLayout();
  int missing = 0;
  for (const QGlyphRun& run : layout.glyphRuns()) missing += run.glyphIndexes().count(0);
  return missing;
}

TEST(Letters, TheFontsHaveThoseOfEveryLanguage) {
  ApplyTheme(*qApp);
  for (const Language& language : kLanguageTable) {
    for (const auto& [id, text] : StringsOf(language.Name)) {
      EXPECT_EQ(MissingLetters(QString::fromStdString(text), QApplication::font()), 0)
          << language.Name << " " << id;
    }
  }
  EXPECT_GT(MissingLetters(QString::fromUcs4(U"\U0010FFFD"), QApplication::font()), 0);
}

}  // namespace
}  // namespace marlex
