#include "desktop/windows/busy_lamp.h"

#include <gtest/gtest.h>

#include <memory>

#include "desktop/windows/binding.h"
#include "desktop/windows/contrast.h"
#include "desktop/windows/painted_windows.h"
#include "desktop/windows/print_scheme.h"
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

/// The main window on a light and on a dark desktop.
class BusyLampTest : public ::testing::TestWithParam<Scheme> {
 protected:
  BusyLampTest() {
    QApplication::setPalette(PaletteOf(GetParam()));
    Main = std::make_unique<PaintedWindows>();
    Main->Forms.frmMain.Load();
    Main->ShowMain();
  }
  ~BusyLampTest() override {
    Main.reset();
    QApplication::setPalette(PaletteOf(Scheme::Light));
  }

  std::unique_ptr<PaintedWindows> Main;
};

TEST_P(BusyLampTest, AtRestItsBulbIsSeenInItsGlass) {
  const LampPicture lamp(*Main);
  EXPECT_GE(Contrast(lamp.Bulb(), lamp.Glass()), kVisible);
}

TEST_P(BusyLampTest, LitItShinesInItsColourInARing) {
  auto& lamp = Main->Find<QLabel>("lblBusy_0");
  for (const auto& [how, color] : {std::pair{"live", "live"}, {"wait", "wait-line"}}) {
    lamp.setProperty(kLampProperty, how);
    lamp.style()->polish(&lamp);
    const LampPicture lit(*Main);
    EXPECT_EQ(lit.Glass(), NamedColor(color, GetParam())) << how;
    EXPECT_EQ(lit.Bulb(), QColor(Qt::white)) << how;
    EXPECT_GE(Contrast(lit.Ring(), lit.Glass()), kVisible) << how;
  }
}

INSTANTIATE_TEST_SUITE_P(Of, BusyLampTest, ::testing::Values(Scheme::Light, Scheme::Dark),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace marlex
