#pragma once

#include <QWidget>

namespace marlex {

/// Puts the pictures on the keys of a window: each key whose property `glyph` is set in the layout
/// gets the picture of that name ("play", "skip", "stop", "note", "microphone"), in white on keys
/// of a strong colour.
void PutGlyphs(QWidget& window);

}  // namespace marlex
