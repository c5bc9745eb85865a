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

TEST(BalancedLabel, ATextRunsInTheDirectionOfItsLanguage) {
  BalancedLabel label;
  label.resize(600, 40);
  label.setText(QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd Tolvo."));
  QString fromLeft;
  std::map<qreal, QString> pieces;
  for (const PaintedTexts::Piece& piece : PaintedTexts::Of(label))
    pieces[piece.Place.left()] = piece.Text;
  for (const auto& [left, text] : pieces) fromLeft += text.trimmed();
  EXPECT_TRUE(fromLeft.startsWith(".") || fromLeft.startsWith("Tolvo")) << fromLeft.toStdString();
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
