#include "desktop/windows/theme.h"

#include <QFile>
#include <QFont>
#include <QStyleFactory>

#include "desktop/windows/logo_mark.h"
#include "desktop/windows/theme_colors.h"

// At namespace scope, as the macro demands; without it the linker leaves the resources of a static
// library out.
static void LoadResources() { Q_INIT_RESOURCE(windows); }

namespace marlex {

namespace {

constexpr qreal kFontPoints = 10.5;

Scheme ShownScheme() { return SchemeOf(QGuiApplication::palette()); }

}  // namespace

void ApplyTheme(QApplication& application) {
  LoadResources();
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  // The digits of these faces are all of one width, so that a running clock does not make its line
  // tremble.
  QFont font;
  font.setFamilies({"Roboto", "Noto Sans", "Open Sans", "DejaVu Sans"});
  font.setPointSizeF(kFontPoints);
  QApplication::setFont(font);
  const Scheme scheme = ShownScheme();  // the desktop's, as long as nothing else has been set
  QApplication::setPalette(PaletteOf(scheme));
  QApplication::setWindowIcon(LogoMark::Icon());
  QFile sheet(":/theme.qss");
  if (sheet.open(QIODevice::ReadOnly))
    application.setStyleSheet(Coloured(QString::fromUtf8(sheet.readAll()), scheme));
}

QColor ThemeColorNow(const char* name) { return NamedColor(name, ShownScheme()); }

QColor ShownColor(Color color) {
  switch (color) {
    case kButtonFace:
      return ThemeColorNow("face");
    case kButtonText:
      return ThemeColorNow("text");
    case kGreen:
      return ThemeColorNow("live");
    case kDarkGreen:
      return ThemeColorNow("ready");
    case kRed:
      return ThemeColorNow("alarm");
    case kNavy:
      return ThemeColorNow("fired");
    default:
      return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                    static_cast<int>(color >> 16 & 0xFF));
  }
}

QColor TextOn(QColor ground) {
  // Weights of the parts as Rec. 709 has them for how light a colour looks.
  const double light = 0.2126 * ground.redF() + 0.7152 * ground.greenF() + 0.0722 * ground.blueF();
  return light > 0.5 ? ThemeColorNow("on-signal") : ThemeColorNow("on-accent");
}

}  // namespace marlex
