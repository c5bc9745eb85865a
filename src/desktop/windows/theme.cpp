#include "desktop/windows/theme.h"

#include <QFile>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>

#include "desktop/windows/logo_mark.h"

// At namespace scope, as the macro demands; without it the linker leaves the resources of a static
// library out.
static void LoadResources() { Q_INIT_RESOURCE(windows); }

namespace marlex {

namespace {

constexpr qreal kFontPoints = 10.5;
const QColor kFace(0xEE, 0xF1, 0xF5);
const QColor kText(0x1B, 0x26, 0x33);
const QColor kAccent(0x1D, 0x63, 0xB8);

QPalette LightPalette() {
  QPalette palette(kFace, kFace);
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    palette.setColor(role, kText);
  }
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(0x9A, 0xA6, 0xB3));
  }
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::AlternateBase, QColor(0xF7, 0xF9, 0xFB));
  palette.setColor(QPalette::ToolTipBase, Qt::white);
  palette.setColor(QPalette::Highlight, kAccent);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  return palette;
}

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
  QApplication::setPalette(LightPalette());
  QApplication::setWindowIcon(LogoMark::Icon());
  QFile sheet(":/theme.qss");
  if (sheet.open(QIODevice::ReadOnly))
    application.setStyleSheet(QString::fromUtf8(sheet.readAll()));
}

QColor ShownColor(Color color) {
  if (color == kButtonFace) return kFace;
  if (color == kButtonText) return kText;
  return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                static_cast<int>(color >> 16 & 0xFF));
}

}  // namespace marlex
