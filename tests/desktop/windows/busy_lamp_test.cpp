#include "desktop/windows/busy_lamp.h"

#include <gtest/gtest.h>

#include "desktop/windows/contrast.h"
#include "desktop/windows/painted_windows.h"
#include "desktop/windows/theme_colors.h"

namespace marlex {
namespace {

struct LampPicture {
  explicit LampPicture(PaintedWindows& windows)
      : Image(windows.Find<QLabel>("lblBusy_0").grab().toImage()) {}

  QColor Bulb() const { return Image.pixelColor(Image.rect().center() + QPoint(0, 3)); }
  QColor Glass() const { return Image.pixelColor(Image.width() / 4, Image.height() * 3 / 4); }

  QImage Image;
};

TEST(BusyLamp, AtRestItsBulbIsSeenInItsGlass) {
  for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
    QApplication::setPalette(PaletteOf(scheme));
    PaintedWindows windows;
    windows.Forms.frmMain.Load();
    windows.ShowMain();
    const LampPicture lamp(windows);
    EXPECT_GE(Contrast(lamp.Bulb(), lamp.Glass()), kVisible) << int(scheme);
  }
  QApplication::setPalette(PaletteOf(Scheme::Light));
}

TEST(BusyLamp, LitItShinesInItsColour) {
  PaintedWindows windows;
  windows.Forms.frmMain.Load();
  windows.ShowMain();
  const QColor dark = LampPicture(windows).Bulb();
  auto& lamp = windows.Find<QLabel>("lblBusy_0");
  for (const char* color : {"live", "wait-line"}) {
    lamp.setStyleSheet("background: " + NamedColor(color, Scheme::Light).name());
    const LampPicture lit(windows);
    EXPECT_EQ(lit.Glass(), NamedColor(color, Scheme::Light));
    EXPECT_GT(lit.Bulb().lightness(), dark.lightness());
  }
}

}  // namespace
}  // namespace marlex
