#include "screen/measure_items.h"

#include <gtest/gtest.h>

#include "windows/frm_main.h"

namespace marlex {
namespace {

using Piece = PaintedTexts::Piece;

constexpr int kFewestLetters = 6;  // of a name that is shortened
constexpr int kKeyGap = 10;        // pixels between the text of an action and its key

QString Text(const QList<Piece>& pieces) {
  QString text;
  for (const Piece& piece : pieces) text += piece.Text;
  return text;
}

/// The letters of a text, regardless of its direction.
std::string Letters(QString text) {
  text.remove(' ');
  std::sort(text.begin(), text.end());
  return text.toStdString();
}

/// In one line: a long tip has ends of lines that its text has not.
QString ToolTipOf(QAbstractItemView& view, const QModelIndex& index) {
  QToolTip::hideText();
  const QPoint middle = view.visualRect(index).center();
  QHelpEvent asks(QEvent::ToolTip, middle, view.viewport()->mapToGlobal(middle));
  QApplication::sendEvent(view.viewport(), &asks);
  return QToolTip::text().remove('\n');
}

/// The operator's own names may have any length; a time or a routing may not.
bool IsName(const QAbstractItemView& view, const QModelIndex& index) {
  return !qobject_cast<const QTableView*>(&view) || index.column() >= kNameColumn;
}

void ExpectItemWhole(QAbstractItemView& view, const QModelIndex& index) {
  const QList<Piece> pieces = PaintedTexts::Of(view, index);
  const QString whole = index.data().toString();
  const QString painted = Text(pieces);
  const QRectF room(view.visualRect(index));
  const std::string cell = view.objectName().toStdString() + ", row " +
                           std::to_string(index.row()) + ", column " +
                           std::to_string(index.column()) + ": \"" + painted.toStdString() + "\"";
  ExpectApart(pieces);
  EXPECT_EQ(painted.isEmpty(), whole.trimmed().isEmpty()) << cell;
  for (const Piece& piece : pieces)
    EXPECT_TRUE(room.contains(piece.Place)) << cell << " " << Corners(piece.Place);
  if (!painted.contains(kLeftOut) || whole.contains(kLeftOut)) return;
  EXPECT_TRUE(IsName(view, index)) << cell << " is no name, and shortened";
  EXPECT_GE(painted.size(), kFewestLetters) << cell;
  EXPECT_EQ(ToolTipOf(view, index).toStdString(), whole.toStdString()) << cell;
}

/// The texts of an action do not run into its key, which is painted after them.
void ExpectKeyApart(const QAction& action, const QList<Piece>& pieces) {
  const QString key = action.shortcut().toString(QKeySequence::NativeText);
  const auto keyPiece = std::find_if(pieces.begin(), pieces.end(),
                                     [&key](const Piece& piece) { return piece.Text == key; });
  ASSERT_NE(keyPiece, pieces.end()) << action.text().toStdString() << " shows no key";
  for (const Piece& piece : pieces) {
    if (&piece == &*keyPiece) continue;
    EXPECT_LE(piece.Place.right() + kKeyGap, keyPiece->Place.left())
        << piece.Text.toStdString() << " touches its key";
  }
}

void ExpectActionWhole(const QAction& action, const QWidget& menu, const QRect& room,
                       const QList<Piece>& painted) {
  QList<Piece> pieces;
  for (const Piece& piece : painted) {
    if (QRectF(room).contains(piece.Place)) pieces.append(piece);
  }
  const QString text = QString(action.text()).replace("&&", "&");
  const QString key = action.shortcut().toString(QKeySequence::NativeText);
  EXPECT_EQ(Letters(Text(pieces)), Letters(text + key))
      << Text(pieces).toStdString() << " in " << Corners(room);
  EXPECT_TRUE(menu.rect().contains(room)) << text.toStdString() << " leaves its menu";
  if (!action.shortcut().isEmpty()) ExpectKeyApart(action, pieces);
}

}  // namespace

std::string Corners(const QRectF& place) {
  QString text;
  QDebug(&text) << place;
  return text.toStdString();
}

void ExpectApart(const QList<Piece>& pieces) {
  for (qsizetype one = 0; one < pieces.size(); ++one) {
    for (qsizetype other = one + 1; other < pieces.size(); ++other) {
      const QRectF shared = pieces[one].Place & pieces[other].Place;
      EXPECT_TRUE(shared.width() < 1 || shared.height() < 1)
          << pieces[one].Text.toStdString() << " and " << pieces[other].Text.toStdString();
    }
  }
}

void ExpectItemsWhole(QAbstractItemView& view) {
  const QRect shown = view.viewport()->rect();
  for (int row = 0; row < view.model()->rowCount(); ++row) {
    for (int column = 0; column < view.model()->columnCount(); ++column) {
      const QModelIndex index = view.model()->index(row, column);
      const QRect place = view.visualRect(index);
      const bool isInView = place.top() >= 0 && place.bottom() <= shown.bottom();
      if (place.isEmpty() || !isInView) continue;
      EXPECT_TRUE(shown.contains(place)) << view.objectName().toStdString() << " is too narrow";
      ExpectItemWhole(view, index);
    }
  }
}

void ExpectItemsWhole(QMenuBar& bar) {
  const QList<Piece> pieces = PaintedTexts::Of(bar);
  for (QAction* title : bar.actions()) {
    if (title->isVisible()) ExpectActionWhole(*title, bar, bar.actionGeometry(title), pieces);
  }
}

void ExpectItemsWhole(QMenu& menu) {
  menu.ensurePolished();
  menu.resize(menu.sizeHint());  // whatever the size of the screen
  const QList<Piece> pieces = PaintedTexts::Of(menu);
  ExpectApart(pieces);
  for (QAction* action : menu.actions()) {
    if (!action->isVisible() || action->isSeparator()) continue;
    ExpectActionWhole(*action, menu, menu.actionGeometry(action), pieces);
  }
}

}  // namespace marlex
