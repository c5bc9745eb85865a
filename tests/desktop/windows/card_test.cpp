#include "desktop/windows/card.h"

#include <gtest/gtest.h>

#include <map>

#include "screen/painted_texts.h"

namespace marlex {
namespace {

/// What a card paints of a title of one line, from left to right.
QString FromLeft(const char* title) {
  Card card;
  card.resize(600, 80);
  card.ShowTitle(QString::fromUtf8(title));
  std::map<qreal, QString> pieces;
  for (const PaintedTexts::Piece& piece : PaintedTexts::Of(card))
    pieces[piece.Place.left()] = piece.Text;
  QString fromLeft;
  for (const auto& [left, piece] : pieces) fromLeft += piece.trimmed();
  return fromLeft;
}

TEST(Card, ATitleRunsInTheDirectionOfItsLanguage) {
  const QString hebrew = FromLeft("\u05e9\u05dc\u05d5\u05dd: Day.lst");
  EXPECT_TRUE(hebrew.startsWith("Day.lst")) << hebrew.toStdString();
  const QString english = FromLeft("Playlist \u05e9\u05dc\u05d5\u05dd Day.lst");
  EXPECT_TRUE(english.startsWith("Playlist") && english.endsWith("Day.lst"))
      << english.toStdString();
}

}  // namespace
}  // namespace marlex
