#pragma once

#include <QtWidgets>

#include "screen/painted_texts.h"

namespace marlex {

inline constexpr QChar kLeftOut = u'\u2026';  // marks where a shortened text was cut

std::string Corners(const QRectF& place);

/// Fails for each pair of overlapping texts.
void ExpectApart(const QList<PaintedTexts::Piece>& pieces);

/// Fails for each visible cell or entry that is cut, that is shortened although its view holds no
/// names there, or whose tool tip does not show the full text.
void ExpectItemsWhole(QAbstractItemView& view);

/// Fails for each menu title for which the menu bar has no room.
void ExpectItemsWhole(QMenuBar& bar);

/// Fails for each text of a menu, open or closed, that is cut or touches its key.
void ExpectItemsWhole(QMenu& menu);

}  // namespace marlex
