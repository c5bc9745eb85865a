#pragma once

#include <QApplication>
#include <QColor>

#include "controls/color.h"

namespace marlex {

/// Gives the application its one look: fonts, palette and the style sheet of theme.qss, light or
/// dark as the desktop is.
void ApplyTheme(QApplication& application);

/// Colour of the theme by its name, in the scheme that is on.
QColor ThemeColorNow(const char* name);

/// A colour of the system as the screen shows it: the two of the system's palette are the theme's
/// own, and the signals are shades on which their texts can be read.
QColor ShownColor(Color color);

/// Colour of a text on a ground that the theme did not choose its texts for.
QColor TextOn(QColor ground);

}  // namespace marlex
