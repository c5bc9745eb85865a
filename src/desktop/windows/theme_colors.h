#pragma once

#include <QColor>
#include <QPalette>
#include <QString>
#include <vector>

namespace marlex {

/// The two schemes. A desktop with light text on dark windows gets the dark one.
enum class Scheme { Light, Dark };

/// A colour in both schemes, with the name that the style sheet uses for it after an '@'.
struct ThemeColor {
  QString Name;
  QColor Light;
  QColor Dark;
};

const std::vector<ThemeColor>& ThemeColors();

/// Colour of that name. Throws `RuntimeFailure` for an unknown name.
QColor NamedColor(const QString& name, Scheme scheme);

/// The scheme that a palette fits, judged by whether its text is lighter than its windows.
Scheme SchemeOf(const QPalette& palette);

/// Palette of a scheme.
QPalette PaletteOf(Scheme scheme);

/// The style sheet with each colour name replaced by the colour of the scheme.
QString Coloured(QString sheet, Scheme scheme);

}  // namespace marlex
