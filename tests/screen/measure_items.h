#pragma once

#include <QtWidgets>

#include "screen/painted_texts.h"

namespace marlex {

inline constexpr QChar kLeftOut = u'\u2026';  // stands where a text goes on that is shortened

std::string Corners(const QRectF& place);

/// Fails for each two texts that lie over each other.
void ExpectApart(const QList<PaintedTexts::Piece>& pieces);

/// Fails for each cell or entry on the screen that is cut, or is shortened although its view keeps
/// no names there, or of which the tool tip does not tell the rest.
void ExpectItemsWhole(QAbstractItemView& view);

/// Fails for each title that the bar has no room for.
void ExpectItemsWhole(QMenuBar& bar);

/// Fails for each text of a menu, open or not, that is cut or touches its key.
void ExpectItemsWhole(QMenu& menu);

}  // namespace marlex
