#include "desktop/windows/balanced_label.h"

#include <gtest/gtest.h>

#include <map>

#include "screen/painted_texts.h"

namespace marlex {
namespace {

const QString kNote = "A note of one line and of a few words more than the line has room for";

/// The painted lines from top to bottom, each as long as its text.
std::vector<QRectF> Lines(QWidget& label) {
  std::map<int, QRectF> lines;
  for (const PaintedTexts::Piece& piece : PaintedTexts::Of(label)) {
    QRectF& line = lines[qRound(piece.Place.top())];
    line = line.united(piece.Place);
  }
  std::vector<QRectF> found;
  for (const auto& [top, line] : lines) found.push_back(line);
  return found;
}

void Shape(QLabel& label, int width) {
  label.setText(kNote);
  label.setWordWrap(true);
  label.setAlignment(Qt::AlignCenter);
  label.resize(width, label.heightForWidth(width));
}

TEST(BalancedLabel, NoLineEndsOnALoneWord) {
  BalancedLabel label;
  const int whole = label.fontMetrics().horizontalAdvance(kNote);
  for (const int width : {whole - 10, whole / 2 - 10, whole / 3 - 10}) {
    Shape(label, width);
    const std::vector<QRectF> lines = Lines(label);
    EXPECT_GT(lines.size(), 1U);
    for (const QRectF& line : lines)
      EXPECT_NEAR(line.width(), lines.front().width(),
                  label.fontMetrics().horizontalAdvance("words "))
          << width;
  }
}

/// What a label paints of a text of one line, from left to right.
QString FromLeft(const char* text) {
  BalancedLabel label;
  label.resize(600, 40);
  label.setText(QString::fromUtf8(text));
  std::map<qreal, QString> pieces;
  for (const PaintedTexts::Piece& piece : PaintedTexts::Of(label))
    pieces[piece.Place.left()] = piece.Text;
  QString fromLeft;
  for (const auto& [left, piece] : pieces) fromLeft += piece.trimmed();
  return fromLeft;
}

TEST(BalancedLabel, ATextRunsInTheDirectionOfItsLanguage) {
  const QString hebrew = FromLeft("\u05e9\u05dc\u05d5\u05dd Tolvo.");
  EXPECT_TRUE(hebrew.startsWith(".") || hebrew.startsWith("Tolvo")) << hebrew.toStdString();
  const QString english = FromLeft("Tolvo \u05e9\u05dc\u05d5\u05dd.");
  EXPECT_TRUE(english.startsWith("Tolvo") && english.endsWith(".")) << english.toStdString();
}

TEST(BalancedLabel, ItTakesNoMoreLinesThanAnyLabelAndStaysWithinIt) {
  BalancedLabel balanced;
  QLabel plain;
  for (int width = 120; width < 640; width += 13) {
    Shape(balanced, width);
    Shape(plain, width);
    const std::vector<QRectF> lines = Lines(balanced);
    EXPECT_EQ(lines.size(), Lines(plain).size()) << width;
    for (const QRectF& line : lines)
      EXPECT_TRUE(QRectF(balanced.rect()).adjusted(-1, -1, 1, 1).contains(line)) << width;
  }
}

}  // namespace
}  // namespace marlex
