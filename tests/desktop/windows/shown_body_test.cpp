#include "desktop/windows/shown_body.h"

#include <gtest/gtest.h>

#include <QtWidgets>

namespace marlex {
namespace {

/// The lines in which a text is painted at that width.
QStringList Lines(const QString& text, int width) {
  QTextLayout layout(text, QApplication::font());
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine())
    line.setLineWidth(width);
  layout.endLayout();
  QStringList lines;
  for (int line = 0; line < layout.lineCount(); ++line) {
    const QTextLine piece = layout.lineAt(line);
    lines << WithoutMarks(text.mid(piece.textStart(), piece.textLength())).trimmed();
  }
  return lines;
}

int WidthOf(const char* text) {
  return QFontMetrics(QApplication::font()).horizontalAdvance(text) + 20;
}

TEST(ShownBody, ATextWithoutAPathStaysAsItIs) {
  EXPECT_EQ(ShownBody("No songs selected\r\nDay.lst"), "No songs selected\nDay.lst");
}

TEST(ShownBody, NoLineEndsWithinAPath) {
  const QString text = ShownBody("Not found: /home/music-1/Autumn and winter/");
  EXPECT_EQ(Lines(text, WidthOf("Not found: /home/music-1/Autumn")),
            QStringList({"Not found:", "/home/music-1/Autumn and winter/"}));
  EXPECT_EQ(WithoutMarks(text), "Not found: /home/music-1/Autumn and winter/");
}

TEST(ShownBody, APathThatIsTooLongEndsItsLinesAfterASeparator) {
  const std::string folders = "/Autumn and winter/Quiet evenings/Autumn and winter/Quiet evenings/";
  const QStringList lines = Lines(ShownBody(folders), WidthOf("/Autumn and winter/Quiet even"));
  EXPECT_GT(lines.size(), 1);
  EXPECT_EQ(lines.join(""), QString::fromStdString(folders));
  for (const QString& line : lines) EXPECT_TRUE(line.endsWith('/')) << line.toStdString();
}

TEST(ShownBody, NoLineEndsWithTheRootOfAPathThatIsTooLong) {
  for (const std::string root : {"/", "C:\\"}) {
    const QString text = ShownBody("Not found: " + root + std::string(70, 'a') + "/b/");
    EXPECT_EQ(Lines(text, WidthOf("Not found: C:\\")).front(), "Not found:") << root;
  }
}

TEST(ShownBody, APathThatDoesNotFitBesideItsWordsBeginsALine) {
  const QString body = "Not found: /home/music/\nNo file: /a/\n/b c/ /d";
  const QString shown = ShownBody(body.toStdString());
  const QString apart =
      WithPathsApart(shown, [](const QString& line) { return line.startsWith("No file"); });
  EXPECT_EQ(Lines(apart, 2000).front(), "Not found:");
  EXPECT_EQ(apart.count(QChar::LineSeparator), 1);
  EXPECT_EQ(WithoutMarks(apart), body);
  EXPECT_EQ(WithPathsApart(shown, [](const QString&) { return true; }), shown);
}

TEST(ShownBody, TheBlanksOfATextStayAsTheyAre) {
  EXPECT_EQ(WithoutMarks(ShownBody("Introuvable\u00A0: /a b/")), "Introuvable\u00A0: /a b/");
}

/// Where a window, none of which is mirrored, paints the last such letter, from the left. Where a
/// run begins, a place would be ambiguous.
qreal PlaceOf(const QString& text, QChar letter) {
  QTextLayout layout(text, QApplication::font());
  QTextOption option;
  option.setTextDirection(Qt::LeftToRight);
  layout.setTextOption(option);
  layout.beginLayout();
  QTextLine line = layout.createLine();
  line.setLineWidth(2000);
  layout.endLayout();
  return line.cursorToX(static_cast<int>(text.lastIndexOf(letter)));
}

TEST(ShownBody, APathRunsFromLeftToRightAmongHebrewLetters) {
  const QString text = ShownBody("\u05D4\u05E7\u05D5\u05D1\u05E5: /app/Q.sch");
  EXPECT_LT(PlaceOf(text, '/'), PlaceOf(text, 'Q'));
  EXPECT_FALSE(text.isRightToLeft()) << "the text begins on the left";
}

TEST(ShownBody, HebrewFoldersFollowOneAnotherFromLeftToRight) {
  const QString folders = "/home/\u05D0\u05D0/\u05D1\u05D1/x";
  for (const QString& shown : {ShownBody(folders.toStdString()), InReadingOrder(folders)}) {
    EXPECT_LT(PlaceOf(shown, QChar(0x05D0)), PlaceOf(shown, QChar(0x05D1)));
    EXPECT_LT(PlaceOf(shown, QChar(0x05D1)), PlaceOf(shown, 'x'));
    EXPECT_EQ(WithoutMarks(shown), folders);
  }
}

TEST(ShownBody, ALineWithoutHebrewLettersStaysAsItIs) {
  for (const char* line : {"/home/music", "Slow river"}) EXPECT_EQ(InReadingOrder(line), line);
}

TEST(ShownBody, AHebrewLineIsReadFromTheRightUpToTheFileItNames) {
  for (const char* line :
       {"\u05D4\u05E7\u05D5\u05D1\u05E5: Q.sch", "\u05D4\u05E7\u05D5\u05D1\u05E5: /Q.sch"}) {
    const QString shown = InReadingOrder(line);
    EXPECT_GT(PlaceOf(shown, QChar(0x05E7)), PlaceOf(shown, QChar(0x05E5)));
    EXPECT_GT(PlaceOf(shown, QChar(0x05E5)), PlaceOf(shown, 'Q'));
    EXPECT_EQ(WithoutMarks(shown), line);
  }
}

TEST(ShownBody, AHebrewQuestionBelowAFileEndsOnItsLeft) {
  const QString line = ShownBody("Day.sch\r\u05D4\u05E7\u05D5\u05D1\u05E5?").section('\n', 1, 1);
  EXPECT_LT(PlaceOf(line, '?'), PlaceOf(line, QChar(0x05E5)));
}

}  // namespace
}  // namespace marlex
