#include "desktop/windows/theme_colors.h"

#include <QRegularExpression>

#include "platform/runtime_failure.h"

namespace marlex {

const std::vector<ThemeColor>& ThemeColors() {
  static const std::vector<ThemeColor> colors = {
      // Texts
      {"text", "#1b2633", "#e6ebf1"},
      {"muted", "#55616f", "#a9b5c2"},
      {"strong", "#124a9c", "#8fbcf5"},
      {"off-text", "#5b6673", "#8a97a5"},
      {"on-accent", "#ffffff", "#ffffff"},
      {"on-signal", "#101820", "#101820"},
      // Backgrounds
      {"face", "#eef1f5", "#141a21"},
      {"card", "#ffffff", "#1f2730"},
      {"tile", "#f4f7fa", "#262f3a"},
      {"off", "#e4e9ef", "#171d24"},
      {"notice", "#fff3dc", "#4a3712"},
      {"notice-text", "#8a4b00", "#ffd596"},
      // Lines
      {"card-line", "#dce2e9", "#333e4a"},
      {"soft-line", "#e3e8ee", "#303a46"},
      {"popup-line", "#77879a", "#728294"},
      {"button-line", "#77879a", "#728294"},
      {"button-line-lit", "#4f6f96", "#8fb0d6"},
      {"mark-line", "#6c7b8d", "#8494a4"},
      // Buttons and choices
      {"button", "#ffffff", "#2a343f"},
      {"button-lit", "#eaf1f9", "#33404e"},
      {"button-down", "#dce8f5", "#3d4d5e"},
      {"menu-lit", "#e4edf8", "#2b3d54"},
      {"accent", "#1d63b8", "#2a6fc9"},
      {"accent-lit", "#2a74cc", "#2f76d2"},
      {"accent-down", "#124a8c", "#1f5aa8"},
      {"accent-line", "#17539b", "#5d9ae6"},
      {"on", "#bcd5f4", "#24466f"},
      {"on-lit", "#a9c8ef", "#2b5383"},
      {"on-text", "#12306b", "#d9e8ff"},
      {"off-on", "#c3cedb", "#3a4552"},
      {"off-accent", "#77879a", "#5f6e80"},
      {"glyph", "#2b3a4a", "#d5dde6"},
      {"off-glyph", "#55616f", "#a9b5c2"},
      {"focus", "#101820", "#ffffff"},
      {"handle", "#758598", "#7a8998"},
      {"handle-lit", "#5f6d7c", "#9fb0c2"},
      {"groove", "#758598", "#6f7f90"},
      {"groove-lit", "#4f86c6", "#5d9ae6"},
      // Signals of the system: speech or a message is on the air, a zone is fed, ready, in
      // conflict, fired last; and the call waits
      {"live", "#3ddc6c", "#3ddc6c"},
      {"fed", "#b5e8c4", "#245c39"},
      {"fed-line", "#1b7a3c", "#4fb574"},
      {"ready", "#1b7a3c", "#1b7a3c"},
      {"alarm", "#c62828", "#c62828"},
      {"fired", "#12306b", "#56687f"},
      {"wait", "#dde4ec", "#3a4552"},
      {"wait-line", "#5a6b7d", "#9fb0c2"},
      // The ribbon of the day, on a card
      {"day-gone", "#8391a2", "#6b7a8e"},
      {"day-conflict", "#c62828", "#f26060"},
      {"day-playing", "#1b7a3c", "#3ddc6c"},
      {"day-music", "#6f8fb3", "#5f86b5"},
  };
  return colors;
}

QColor NamedColor(const QString& name, Scheme scheme) {
  for (const ThemeColor& color : ThemeColors()) {
    if (color.Name == name) return scheme == Scheme::Dark ? color.Dark : color.Light;
  }
  throw RuntimeFailure("The theme has no colour " + name.toStdString());
}

Scheme SchemeOf(const QPalette& palette) {
  const bool isDark =
      palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
  return isDark ? Scheme::Dark : Scheme::Light;
}

QPalette PaletteOf(Scheme scheme) {
  const auto named = [scheme](const char* name) { return NamedColor(name, scheme); };
  QPalette palette(named("face"), named("face"));
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    palette.setColor(role, named("text"));
  }
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, named("off-text"));
  }
  palette.setColor(QPalette::Base, named("card"));
  palette.setColor(QPalette::AlternateBase, named("tile"));
  palette.setColor(QPalette::ToolTipBase, named("card"));
  palette.setColor(QPalette::PlaceholderText, named("muted"));
  palette.setColor(QPalette::Highlight, named("accent"));
  palette.setColor(QPalette::HighlightedText, named("on-accent"));
  palette.setColor(QPalette::Link, named("strong"));
  return palette;
}

QString Coloured(QString sheet, Scheme scheme) {
  static const QRegularExpression name("@([a-z-]+)");
  for (QRegularExpressionMatch found = name.match(sheet); found.hasMatch();
       found = name.match(sheet, found.capturedStart())) {
    const QColor color = NamedColor(found.captured(1), scheme);
    sheet.replace(found.capturedStart(), found.capturedLength(), color.name());
  }
  return sheet;
}

}  // namespace marlex
