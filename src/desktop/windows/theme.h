#pragma once

#include <QApplication>
#include <QColor>
#include <functional>

#include "controls/color.h"
#include "desktop/windows/theme_colors.h"

namespace marlex {

/// Gives the application its one look: fonts, palette and the style sheet of theme.qss, light or
/// dark as the desktop is, and follows the desktop when that changes. Its windows tell it of the
/// change by their events.
class Theme : public QObject {
 public:
  explicit Theme(QApplication& application);

  /// The colours are those of the other scheme now.
  std::function<void()> OnChange;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Follow();
  void Apply(Scheme scheme);

  QApplication& Application;
  QString Sheet;  // with the names of its colours
  Scheme Applied = Scheme::Light;
  bool Applying = false;  // the palette's changes are the theme's own
  bool FollowQueued = false;
  bool DesktopChanged = false;  // and not only the palette that was set for the program
};

/// The scheme that is on.
Scheme ShownScheme();

/// Colour of the theme by its name, in the scheme that is on.
QColor ThemeColorNow(const char* name);

/// A colour of the system as the screen shows it: the two of the system's palette are the theme's
/// own, and the signals are shades on which their texts can be read.
QColor ShownColor(Color color);

/// Colour of a text on a ground that the theme did not choose its texts for.
QColor TextOn(QColor ground);

}  // namespace marlex
