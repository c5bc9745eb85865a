#pragma once

#include <QApplication>
#include <QColor>
#include <functional>

#include "controls/color.h"
#include "desktop/windows/theme_colors.h"

namespace marlex {

/// Gives the application its look: fonts, palette and the style sheet `theme.qss`, light or dark
/// like the desktop, and follows the desktop when that changes. Install it as an event filter on
/// each window, so that it sees the change.
class Theme : public QObject {
 public:
  explicit Theme(QApplication& application);

  /// Called after a change to the other scheme's colours.
  std::function<void()> OnChange;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Follow();
  void Apply(Scheme scheme);

  QApplication& Application;
  QString Sheet;  // with the names of the colours
  Scheme Applied = Scheme::Light;
  bool Applying = false;  // ignore palette changes: the theme makes them itself
  bool FollowQueued = false;
  bool DesktopChanged = false;  // not only the palette set for the program
};

/// The current scheme.
Scheme ShownScheme();

/// Colour of the theme by its name, in the current scheme.
QColor ThemeColorNow(const char* name);

/// A colour of the system as the screen shows it: its two palette colours become those of the
/// theme, and its signal colours become shades on which their texts are readable.
QColor ShownColor(Color color);

/// Text colour that is readable on an arbitrary background.
QColor TextOn(QColor ground);

}  // namespace marlex
