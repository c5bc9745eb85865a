#include "desktop/windows/busy_lamp.h"

#include <gtest/gtest.h>

#include "desktop/windows/binding.h"
#include "desktop/windows/contrast.h"
#include "desktop/windows/painted_windows.h"
#include "desktop/windows/theme_colors.h"

namespace marlex {
namespace {

struct LampPicture {
  explicit LampPicture(PaintedWindows& windows)
      : Image(windows.Find<QLabel>("lblBusy_0").grab().toImage()) {}

  QColor Bulb() const { return Image.pixelColor(Image.rect().center() + QPoint(0, 2)); }
  QColor Ring() const { return Image.pixelColor(DarkestBelowTheMiddle()); }
  QColor Glass() const { return Image.pixelColor(Image.width() / 4, Image.height() * 3 / 4); }

  QPoint DarkestBelowTheMiddle() const {
    QPoint darkest = Image.rect().center();
    for (QPoint at = darkest; at.y() < Image.height() - 3; at += QPoint(0, 1)) {
      if (Image.pixelColor(at).lightness() < Image.pixelColor(darkest).lightness()) darkest = at;
    }
    return darkest;
  }

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

TEST(BusyLamp, LitItShinesInItsColourInARing) {
  for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
    QApplication::setPalette(PaletteOf(scheme));
    PaintedWindows windows;
    windows.Forms.frmMain.Load();
    windows.ShowMain();
    auto& lamp = windows.Find<QLabel>("lblBusy_0");
    for (const auto& [how, color] : {std::pair{"live", "live"}, {"wait", "wait-line"}}) {
      lamp.setProperty(kLampProperty, how);
      lamp.style()->polish(&lamp);
      const LampPicture lit(windows);
      EXPECT_EQ(lit.Glass(), NamedColor(color, scheme)) << how;
      EXPECT_EQ(lit.Bulb(), QColor(Qt::white)) << how;
      EXPECT_GE(Contrast(lit.Ring(), lit.Glass()), kVisible) << how << int(scheme);
    }
  }
  QApplication::setPalette(PaletteOf(Scheme::Light));
}

}  // namespace
}  // namespace marlex
