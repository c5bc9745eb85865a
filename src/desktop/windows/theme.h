#pragma once

#include <QApplication>
#include <QColor>

#include "controls/color.h"

namespace marlex {

/// Gives the application its one look: fonts, palette and the style sheet of theme.qss.
void ApplyTheme(QApplication& application);

/// A colour of the system as the screen shows it; the two colours of the system's palette are the
/// theme's own.
QColor ShownColor(Color color);

}  // namespace marlex
