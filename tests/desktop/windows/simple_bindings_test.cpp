#include <gtest/gtest.h>

#include "desktop/process/qt_event_loop.h"
#include "desktop/windows/bench.h"
#include "desktop/windows/mouse.h"

namespace marlex {
namespace {

TEST(SimpleBindings, ACheckBoxHoldsOneOrNought) {
  Bench bench;
  auto& check = bench.Make<CheckBox>("chkMute");
  auto& widget = bench.Add<QCheckBox>("chkMute");
  int clicks = 0;
  check.OnClick = [&] { ++clicks; };
  bench.Show();
  Mouse(widget).Click({8, widget.height() / 2});
  bench.Settle();
  EXPECT_EQ(check.Value, 1);
  check.Value = 0;
  bench.Settle();
  EXPECT_FALSE(widget.isChecked());
  EXPECT_EQ(clicks, 2);
}

TEST(SimpleBindings, OneOptionOfAnArrayIsOn) {
  Bench bench;
  auto& options = bench.Make<ControlArray<OptionButton>>("optPort", 0, 2);
  std::vector<QRadioButton*> widgets;
  for (const char* name : {"optPort_0", "optPort_1", "optPort_2"})
    widgets.push_back(&bench.Add<QRadioButton>(name));
  options[0].SetValue(true);
  bench.Show();
  Mouse(*widgets[2]).Click({8, widgets[2]->height() / 2});
  bench.Settle();
  EXPECT_FALSE(options[0].Value());
  EXPECT_TRUE(options[2].Value());
  options[1].SetValue(true);
  bench.Settle();
  EXPECT_FALSE(widgets[0]->isChecked());
  EXPECT_TRUE(widgets[1]->isChecked());
  EXPECT_FALSE(widgets[2]->isChecked());
  options[1].SetValue(false);
  bench.Settle();
  EXPECT_FALSE(widgets[1]->isChecked()) << "a group may be all off";
}

TEST(SimpleBindings, AnOptionThatWasDisabledMeanwhileKeepsItsArray) {
  Bench bench;
  auto& options = bench.Make<ControlArray<OptionButton>>("optPort", 0, 1);
  auto& first = bench.Add<QRadioButton>("optPort_0");
  auto& second = bench.Add<QRadioButton>("optPort_1");
  options[0].SetValue(true);
  bench.Show();
  options[1].Enabled = false;
  Mouse(second).Click({8, second.height() / 2});
  bench.Settle();
  EXPECT_TRUE(options[0].Value());
  EXPECT_TRUE(first.isChecked());
  EXPECT_FALSE(second.isChecked());
}

TEST(SimpleBindings, TypedTextReachesTheControl) {
  Bench bench;
  auto& box = bench.Make<TextBox>("txtName");
  auto& widget = bench.Add<QLineEdit>("txtName");
  int changes = 0;
  box.OnChange = [&] { ++changes; };
  bench.Show();
  box.Text = "Hall";
  bench.Settle();
  EXPECT_EQ(widget.text(), "Hall");
  QTest::keyClicks(&widget, " B");
  bench.Settle();
  EXPECT_EQ(box.Text.Get(), "Hall B");
  EXPECT_EQ(changes, 3) << "one by code and one for each key";
}

TEST(SimpleBindings, ASliderMovesBothWays) {
  Bench bench;
  auto& slider = bench.Make<Slider>("slMaster");
  auto& widget = bench.Add<QSlider>("slMaster");
  int changes = 0;
  slider.OnChange = [&] { ++changes; };
  bench.Show();
  slider.Value = 40000;
  bench.Settle();
  EXPECT_EQ(widget.value(), 40000);
  EXPECT_EQ(changes, 1);
  widget.setSliderPosition(100);
  bench.Settle();
  EXPECT_EQ(slider.Value.Get(), 100);
  EXPECT_EQ(changes, 2);
}

/// Digits 1 to 9 and 0, over and over.
QString Digits(int count) {
  QString digits;
  for (int digit = 1; digit <= count; ++digit) digits += QString::number(digit % 10);
  return digits;
}

TEST(SimpleBindings, KeysBetweenAnEditAndItsPaintingKeepTheirPlaces) {
  constexpr int kKeys = 30;
  Bench bench;
  auto& box = bench.Make<TextBox>("txtHours");
  auto& widget = bench.Add<QLineEdit>("txtHours");
  bench.Show();
  box.Text = "a z";
  bench.Settle();
  widget.setCursorPosition(2);
  int typed = 0;
  const auto type = [&] { QTest::keyClick(&widget, Qt::Key(Qt::Key_0 + ++typed % 10)); };
  box.OnChange = [&] {
    if (typed < kKeys) type();
  };
  type();
  for (int round = 0; round < kKeys; ++round) bench.Settle();
  EXPECT_EQ(widget.text(), "a " + Digits(kKeys) + "z");
  EXPECT_EQ(box.Text.Get(), widget.text().toStdString());
}

TEST(SimpleBindings, FastTypingInTheMiddleOfATextKeepsEveryKeyInItsPlace) {
  constexpr int kKeys = 30;
  QtEventLoop loop;
  Form place("frmBench", "Bench");
  TextBox box(place, "txtHours");
  QWidget window;
  QVBoxLayout rows(&window);
  QLineEdit widget;
  widget.setObjectName("txtHours");
  rows.addWidget(&widget);
  Binder view(place, window, loop);
  place.Show();
  box.Text = "az";
  loop.PumpUntil([&] { return widget.text() == "az"; });
  widget.setCursorPosition(1);
  box.OnChange = [] { QThread::msleep(3); };  // so that keys arrive before the painting
  int typed = 0;
  QTimer hand;
  hand.setTimerType(Qt::PreciseTimer);
  QObject::connect(&hand, &QTimer::timeout, [&] {
    if (typed == kKeys) return hand.stop();
    QTest::keyClick(&widget, Qt::Key(Qt::Key_0 + ++typed % 10));
    hand.start(1 + typed % 10);
  });
  hand.start(1);
  loop.PumpUntil([&] { return typed == kKeys && !hand.isActive(); });
  const std::string wanted = "a" + Digits(kKeys).toStdString() + "z";
  EXPECT_TRUE(QTest::qWaitFor([&] { return box.Text.Get() == wanted; })) << box.Text.Get();
  EXPECT_EQ(widget.text().toStdString(), wanted);
}

TEST(SimpleBindings, ATextThatTheSystemPutsInIsShownAfterTheTyping) {
  Bench bench;
  auto& box = bench.Make<TextBox>("txtMinutes");
  auto& widget = bench.Add<QLineEdit>("txtMinutes");
  box.OnChange = [&] {
    if (box.Text.Get() == "12") box.Text = "00,30";
  };
  bench.Show();
  QTest::keyClicks(&widget, "12");
  bench.Settle();
  EXPECT_EQ(widget.text(), "00,30");
  box.Enabled = false;  // not yet painted, but the key is already refused
  QTest::keyClick(&widget, Qt::Key_5);
  bench.Settle();
  EXPECT_EQ(widget.text(), "00,30");
}

}  // namespace
}  // namespace marlex
