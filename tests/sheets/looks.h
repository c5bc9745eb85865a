#pragma once

#include "sheets/sheet.h"

namespace marlex {

/// Paints a window in each of its states in a language, and adds the pictures to a sheet.
using Painter = void (*)(const char* language, Sheet& sheet);

/// Saves a sheet for each language in a folder.
void PaintInEveryLanguage(Painter paint, const QString& folder);

/// Saves one in English on a dark desktop, and expects every picture to be dark.
void PaintInTheDark(Painter paint, const QString& folder);

}  // namespace marlex
