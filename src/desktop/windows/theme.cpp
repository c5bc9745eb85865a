#include "desktop/windows/theme.h"

#include <QFile>
#include <QFont>
#include <QScopedValueRollback>
#include <QStyleFactory>
#include <QTimer>

#include "desktop/windows/logo_mark.h"

// At namespace scope, as the macro requires. Without it the linker drops the resources of a static
// library.
static void LoadResources() { Q_INIT_RESOURCE(windows); }

namespace marlex {

namespace {

constexpr qreal kFontPoints = 10.5;

}  // namespace

Theme::Theme(QApplication& application) : Application(application) {
  LoadResources();
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  // The digits of these fonts all have the same width, so that a running clock does not jitter.
  QFont font;
  font.setFamilies({"Roboto", "Noto Sans", "Open Sans", "DejaVu Sans"});
  font.setPointSizeF(kFontPoints);
  QApplication::setFont(font);
  QApplication::setWindowIcon(LogoMark::Icon());
  QFile sheet(":/theme.qss");
  if (sheet.open(QIODevice::ReadOnly)) Sheet = QString::fromUtf8(sheet.readAll());
  Apply(ShownScheme());
}

/// Each window receives the same change, and the palette changes in several steps; the theme
/// follows once, after the last.
bool Theme::eventFilter(QObject*, QEvent* event) {
  const bool ofDesktop = event->type() == QEvent::ThemeChange;
  if (Applying || (!ofDesktop && event->type() != QEvent::ApplicationPaletteChange)) return false;
  DesktopChanged = DesktopChanged || ofDesktop;
  if (!FollowQueued) QTimer::singleShot(0, this, [this] { Follow(); });
  FollowQueued = true;
  return false;
}

void Theme::Follow() {
  FollowQueued = false;
  const QScopedValueRollback guard(Applying, true);
  // The theme's own palette would hide the desktop's.
  if (DesktopChanged) QApplication::setPalette(QPalette());
  DesktopChanged = false;
  const Scheme scheme = ShownScheme();
  if (scheme == Applied) return QApplication::setPalette(PaletteOf(scheme));
  Apply(scheme);
  if (OnChange) OnChange();
}

void Theme::Apply(Scheme scheme) {
  Applied = scheme;
  QApplication::setPalette(PaletteOf(scheme));
  Application.setStyleSheet(Coloured(Sheet, scheme));
}

/// The desktop's scheme, as long as no other palette is set.
Scheme ShownScheme() { return SchemeOf(QGuiApplication::palette()); }

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
  // Luma weights of ITU-R BT.709: how bright each primary looks.
  const double light = 0.2126 * ground.redF() + 0.7152 * ground.greenF() + 0.0722 * ground.blueF();
  return light > 0.5 ? ThemeColorNow("on-signal") : ThemeColorNow("on-accent");
}

}  // namespace marlex
