#include "desktop/windows/day_ribbon_view.h"

#include <gtest/gtest.h>

#include "desktop/windows/contrast.h"
#include "desktop/windows/painted_windows.h"
#include "desktop/windows/shop_desk.h"
#include "desktop/windows/texts.h"
#include "desktop/windows/theme_colors.h"

namespace marlex {
namespace {

constexpr int kNoon = 12 * 60;
constexpr int kWidth = 1100;

DayMark Mark(int minute, DayMarkState state = DayMarkState::Coming, bool atBreak = false) {
  return {minute, atBreak, state, "a tip"};
}

/// A ribbon by itself, in the theme's colours.
class DayRibbonViewTest : public ::testing::Test {
 protected:
  DayRibbonViewTest() {
    Ribbon.setProperty("face", "band-day");
    Ribbon.installEventFilter(&Look);
    Ribbon.resize(kWidth, Ribbon.sizeHint().height());
    Ribbon.show();
  }
  ~DayRibbonViewTest() override { QApplication::setPalette(PaletteOf(Scheme::Light)); }

  QImage Picture() { return Ribbon.grab().toImage(); }
  std::string At(int x, int y) { return Picture().pixelColor(x, y).name().toStdString(); }
  std::string At(const DayMark& mark) {
    const QPoint middle = Ribbon.PlaceOf(mark).center();
    return At(middle.x(), middle.y());
  }
  static QWidget* VisibleTip() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->isVisible() && window->objectName() == "qtooltip_label") return window;
    }
    return nullptr;
  }
  static std::string Named(const char* colour, Scheme scheme = Scheme::Light) {
    return NamedColor(colour, scheme).name().toStdString();
  }

  Theme Look{*qApp};
  DayRibbonView Ribbon;
};

TEST_F(DayRibbonViewTest, SpreadsTheDayOverItsWidth) {
  EXPECT_EQ(Ribbon.PlaceOf(kNoon), kWidth / 2);
  EXPECT_GT(Ribbon.PlaceOf(0), 8);
  EXPECT_EQ(Ribbon.PlaceOf(kMinutesPerDay) - kWidth / 2, kWidth / 2 - Ribbon.PlaceOf(0));
}

TEST_F(DayRibbonViewTest, PaintsABarForATimeAndADotForABreak) {
  const DayMark bar = Mark(9 * 60);
  const DayMark dot = Mark(15 * 60, DayMarkState::Coming, true);
  Ribbon.Paint({{}, {bar, dot}, kNoon});
  for (const DayMark& mark : {bar, dot}) EXPECT_EQ(At(mark), Named("text"));
  const QRect place = Ribbon.PlaceOf(bar);
  for (const int y : {place.top(), place.bottom()}) {
    EXPECT_EQ(At(place.center().x(), y), Named("text"));
    EXPECT_EQ(At(Ribbon.PlaceOf(dot).center().x(), y), Named("card"));
  }
  EXPECT_EQ(At(place.left() - 1, place.center().y()), Named("card"));
  EXPECT_EQ(At(place.right() + 1, place.center().y()), Named("card"));
  EXPECT_EQ(At(Ribbon.PlaceOf(dot).left() + 1, place.center().y()), Named("text"));
  EXPECT_NE(At(Ribbon.PlaceOf(dot).left(), Ribbon.PlaceOf(dot).top()), Named("text"));
}

TEST_F(DayRibbonViewTest, ShowsGoneComingConflictAndPlayingInColoursOfTheirOwn) {
  const std::map<DayMarkState, const char*> colours = {{DayMarkState::Gone, "day-gone"},
                                                       {DayMarkState::Coming, "text"},
                                                       {DayMarkState::Conflict, "day-conflict"},
                                                       {DayMarkState::Playing, "day-playing"}};
  for (const auto& [state, colour] : colours) {
    for (const bool atBreak : {false, true}) {
      const DayMark mark = Mark(9 * 60, state, atBreak);
      Ribbon.Paint({{}, {mark}, kNoon});
      EXPECT_EQ(At(mark), Named(colour));
    }
  }
}

TEST_F(DayRibbonViewTest, PaintsWhatMattersMostOverTheRest) {
  for (const auto above : {DayMarkState::Coming, DayMarkState::Conflict, DayMarkState::Playing}) {
    const auto below = static_cast<DayMarkState>(static_cast<int>(above) - 1);
    const DayMark mark = Mark(540, above);
    Ribbon.Paint({{}, {mark, Mark(541, below)}, kNoon});
    const std::string over = At(mark);
    Ribbon.Paint({{}, {mark}, kNoon});
    EXPECT_EQ(over, At(mark));
  }
  Ribbon.Paint({{}, {Mark(540, DayMarkState::Playing)}, 540});  // on the line for now
  EXPECT_EQ(At(Mark(540, DayMarkState::Playing)), Named("day-playing"));
}

TEST_F(DayRibbonViewTest, PaintsALineThroughAllOfItForNow) {
  for (const int now : {0, 9 * 60 + 30, kMinutesPerDay - 1}) {
    Ribbon.Paint({{}, {}, now});
    const int x = Ribbon.PlaceOf(now);
    const QImage picture = Picture();
    int line = 0;
    for (int y = 0; y < picture.height(); ++y)
      line += picture.pixelColor(x, y) == NamedColor("strong", Scheme::Light) ? 1 : 0;
    EXPECT_GE(line, Ribbon.height() - 8) << now;
    EXPECT_EQ(picture.pixelColor(x + 6, Ribbon.height() / 2).name().toStdString(), Named("card"));
  }
}

TEST_F(DayRibbonViewTest, PaintsTheMusicFromItsStartToItsStop) {
  Ribbon.Paint({{8 * 60, 18 * 60}, {}, kNoon});
  const QRect strip = Ribbon.PlaceOfMusic();
  EXPECT_EQ(strip.left(), Ribbon.PlaceOf(8 * 60));
  EXPECT_EQ(strip.right() + 1, Ribbon.PlaceOf(18 * 60));
  const int y = strip.center().y();
  for (const int x : {strip.left(), strip.right()}) EXPECT_EQ(At(x, y), Named("day-music"));
  for (const int x : {strip.left() - 1, strip.right() + 1}) EXPECT_EQ(At(x, y), Named("card"));
  Ribbon.Paint({{}, {}, kNoon});
  EXPECT_TRUE(Ribbon.PlaceOfMusic().isEmpty());
  for (const int minute : {0, 8 * 60, 17 * 60})
    EXPECT_EQ(At(Ribbon.PlaceOf(minute), y), Named("card"));
}

TEST_F(DayRibbonViewTest, HasATickForEachHourAndALongerOneForEachSix) {
  Ribbon.Paint({{}, {}, 7 * 60 + 30});
  const QImage picture = Picture();
  for (int hour = 0; hour <= 24; ++hour) {
    int tick = 0;
    for (int y = 0; y < picture.height(); ++y)
      tick +=
          picture.pixelColor(Ribbon.PlaceOf(hour * 60), y) == NamedColor("mark-line", Scheme::Light)
              ? 1
              : 0;
    EXPECT_EQ(tick, hour % 6 == 0 ? 5 : 3) << hour;
  }
}

TEST_F(DayRibbonViewTest, KeepsAllItsMarksVisibleInLightAndDark) {
  for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
    QApplication::setPalette(QPalette(scheme == Scheme::Dark ? QColor("#303030") : Qt::lightGray));
    QApplication::processEvents();
    std::vector<DayMark> marks;
    for (const auto state : {DayMarkState::Gone, DayMarkState::Coming, DayMarkState::Conflict,
                             DayMarkState::Playing}) {
      marks.push_back(Mark(static_cast<int>(marks.size()) * 60 + 90, state));
      marks.push_back(Mark(static_cast<int>(marks.size()) * 60 + 90, state, true));
    }
    Ribbon.Paint({{14 * 60, 18 * 60}, marks, 20 * 60});
    const QImage picture = Picture();
    const QColor ground = picture.pixelColor(Ribbon.PlaceOf(23 * 60), Ribbon.height() / 2);
    ASSERT_EQ(ground, NamedColor("card", scheme));
    std::vector<QPoint> places = {Ribbon.PlaceOfMusic().center(),
                                  {Ribbon.PlaceOf(20 * 60), Ribbon.height() / 2},
                                  {Ribbon.PlaceOf(kNoon), Ribbon.height() - 6}};
    for (const DayMark& mark : marks) places.push_back(Ribbon.PlaceOf(mark).center());
    for (const QPoint& place : places)
      EXPECT_GE(Contrast(picture.pixelColor(place), ground), kVisible) << place.x();
  }
}

TEST_F(DayRibbonViewTest, NamesTheMarksUnderThePointerAndNothingElsewhere) {
  DayMark first = Mark(600);
  DayMark second = Mark(605);
  DayMark far = Mark(660);
  first.Tip = "10:00 gong & <b>closing</b>";
  second.Tip = "10:05+ lunch";
  far.Tip = "11:00 welcome\n11:00 gong";
  Ribbon.Paint({{}, {first, second, far}, kNoon});
  const auto tipAt = [this](int x) {
    if (QWidget* last = VisibleTip()) last->hide();  // at once, not after a moment
    QHelpEvent rest(QEvent::ToolTip, {x, 20}, Ribbon.mapToGlobal(QPoint(x, 20)));
    QApplication::sendEvent(&Ribbon, &rest);
    return VisibleTip() ? QToolTip::text().toStdString() : "";
  };
  EXPECT_EQ(tipAt(Ribbon.PlaceOf(660)), far.Tip);
  EXPECT_EQ(tipAt(Ribbon.PlaceOf(660) + 5), far.Tip);
  EXPECT_EQ(tipAt(Ribbon.PlaceOf(660) + 6), "");
  EXPECT_EQ(tipAt(Ribbon.PlaceOf(kNoon)), "");
  EXPECT_EQ(tipAt(Ribbon.PlaceOf(605) + 4), second.Tip);
  const std::string both = tipAt(Ribbon.PlaceOf(602));
  EXPECT_NE(both.find("10:00 gong"), std::string::npos);
  EXPECT_NE(both.find("10:05+ lunch"), std::string::npos);
  EXPECT_EQ(both.find("<b>"), std::string::npos);
}

/// Counts how often a widget is painted.
class Paints : public QObject {
 public:
  int Count = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    Count += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
};

class DayOnTheScreen : public ::testing::Test {
 protected:
  DayOnTheScreen() {
    Shop.Screen.Main().resize(1160, 760);
    Shop.Settle();
  }

  DayRibbonView& Ribbon() {
    return dynamic_cast<DayRibbonView&>(WholeDesk::Find<QFrame>(Shop.Screen.Main(), "paneDay"));
  }
  void AddRow(const std::string& time) {
    Grid& table = Shop.Sys.TheWindows.frmMain.grdSchedule;
    Shop.Pc.Loop.Post([&table, time] {
      table.SetRows(table.Rows() + 1);
      table.SetTextMatrix(table.Rows() - 1, kTimeColumn, time);
      table.SetTextMatrix(table.Rows() - 1, kMessagesColumn, "gong");
    });
    Shop.Settle();
  }
  QColor MarkAt(int minute) {
    return Ribbon().grab().toImage().pixelColor(Ribbon().PlaceOf(Mark(minute)).center());
  }

  ShopDesk Shop;
};

TEST_F(DayOnTheScreen, ShowsARowAsSoonAsTheTableHasIt) {
  const int minute = 23 * 60 + 30;
  ASSERT_TRUE(Ribbon().isVisible());
  EXPECT_EQ(MarkAt(minute), NamedColor("card", Scheme::Light));
  AddRow("23:30  ");
  EXPECT_EQ(MarkAt(minute), NamedColor("text", Scheme::Light));
  AddRow("23:30  ");
  EXPECT_EQ(MarkAt(minute), NamedColor("day-conflict", Scheme::Light));
}

TEST_F(DayOnTheScreen, IsPaintedOnceAMinuteAndOnlyWhenSomethingHasChanged) {
  AddRow("23:30  ");
  const int second = Shop.Pc.Clock.Now().Second;
  Shop.Advance((60 - second) * 1000 + 500);
  Paints paints;
  Ribbon().installEventFilter(&paints);
  for (int part = 0; part < 58; ++part) Shop.Advance(1000);
  EXPECT_EQ(paints.Count, 0);
  Shop.Advance(2000);
  EXPECT_EQ(paints.Count, 1);
  AddRow("23:45  ");
  EXPECT_EQ(paints.Count, 2);
}

TEST_F(DayOnTheScreen, TakesTheColoursOfTheDesktopAtOnce) {
  AddRow("23:30  ");
  QApplication::setPalette(QPalette(QColor("#303030")));
  Shop.Settle();
  EXPECT_EQ(MarkAt(23 * 60 + 30), NamedColor("text", Scheme::Dark));
  QApplication::setPalette(QPalette(Qt::lightGray));
  Shop.Settle();
  EXPECT_EQ(MarkAt(23 * 60 + 30), NamedColor("text", Scheme::Light));
  QApplication::setPalette(PaletteOf(Scheme::Light));
}

TEST_F(DayOnTheScreen, GivesWayInALowWindowAndComesBack) {
  QWidget& window = Shop.Screen.Main();
  for (const auto& [height, isShown] :
       std::vector<std::pair<int, bool>>{{700, false},
                                         {DayRibbonView::kLeastWindowHeight, true},
                                         {DayRibbonView::kLeastWindowHeight - 1, false},
                                         {1080, true}}) {
    window.resize(1024, height);
    Shop.Settle();
    EXPECT_EQ(window.height(), height);
    EXPECT_EQ(Ribbon().isVisible(), isShown) << height;
  }
}

/// Otherwise the window could not be made low enough in one step for the ribbon to go.
TEST(DayRibbonPlace, IsWholeInTheLowestWindowThatHasItAndLetsItShrink) {
  PaintedWindows windows;
  FrmMain& main = windows.Forms.frmMain;
  main.Load();
  Texts().Fill(windows.Forms);
  windows.ShowMain();
  windows.Screen.Main().resize(1024, DayRibbonView::kLeastWindowHeight);
  windows.Settle();
  auto& ribbon = windows.Find<QFrame>("paneDay");
  EXPECT_EQ(ribbon.height(), ribbon.sizeHint().height());
  EXPECT_LE(windows.Screen.Main().minimumSizeHint().height(), 700);
}

}  // namespace
}  // namespace marlex
