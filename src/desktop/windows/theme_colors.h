#pragma once

#include <QColor>
#include <QPalette>
#include <QString>
#include <vector>

namespace marlex {

/// The two looks. A desktop that shows light text on dark windows gets the dark one.
enum class Scheme { Light, Dark };

/// A colour of the look by the name that the style sheet calls it, with '@' before it.
struct ThemeColor {
  QString Name;
  QColor Light;
  QColor Dark;
};

const std::vector<ThemeColor>& ThemeColors();

/// Colour of that name; an unknown name is a RuntimeFailure.
QColor NamedColor(const QString& name, Scheme scheme);

/// Scheme that a palette has been made for, by the lightness of its windows and texts.
Scheme SchemeOf(const QPalette& palette);

/// Palette of a scheme.
QPalette PaletteOf(Scheme scheme);

/// The style sheet with the colours of the scheme in the place of their names.
QString Coloured(QString sheet, Scheme scheme);

}  // namespace marlex
