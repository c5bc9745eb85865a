#include "desktop/amplifier/amplifier_window.h"

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "amplifier/bytes.h"
#include "desktop/windows/theme.h"
#include "places.h"

namespace marlex {
namespace {

class AmplifierWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    Amplifier.Send = [this](char byte) {
      Sent.push_back(static_cast<unsigned char>(byte));
      return true;
    };
    Amplifier.OnChange = [this] { Window.ShowAmplifier(); };
    Window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window));
  }

  template <class T>
  T& Part(const QString& name) {
    return *Window.findChild<T*>(name);
  }
  void Click(const char* key) { QTest::mouseClick(&Part<QPushButton>(key), Qt::LeftButton); }

  /// A "1" for each zone whose lamp is lit.
  std::string Lit() {
    std::string lit;
    for (int zone = 0; zone < kZones; ++zone) {
      const auto& lamp = Part<QLabel>(QString("lblCurrentZone_%1").arg(zone));
      lit += lamp.property("lit").toString() == "fed" ? '1' : '0';
    }
    return lit;
  }

  /// Names of the keys that look chosen.
  std::string Chosen() {
    std::string chosen;
    for (const char* key : {"cmdFree", "cmdLower", "cmdHigher", "cmdBoth"})
      if (Part<QPushButton>(key).isChecked()) chosen += key;
    return chosen;
  }

  std::string Row(int row) {
    std::string cells;
    const auto& table = Part<QTableWidget>("grdBytes");
    for (int column = 0; column < table.columnCount(); ++column)
      cells += (column ? "|" : "") + table.item(row, column)->text().toStdString();
    return cells;
  }
  int Rows() { return Part<QTableWidget>("grdBytes").rowCount(); }

  /// An announcement, and then a call of higher priority.
  void FillForAPicture() {
    Time = "12:00:00.251";
    Amplifier.Hear("\x4F");
    Time = "12:20:01.604";
    Amplifier.Hear(std::string(1, kReleaseByte));
    Time = "12:20:01.806";
    Amplifier.Hear("\x43");
    Time = "12:20:14.902";
    Amplifier.Hear("\x4F");
    Time = "12:23:40.315";
    Click("cmdHigher");
    Window.ShowLine("A desk has the line open: /home/desk/.local/share/marlex/com1");
  }

  /// Keeps a picture for people to look at.
  void Keep(const QString& name) {
    const QString directory = QString(MARLEX_BINARY_DIR) + "/screenshots";
    QDir().mkpath(directory);
    EXPECT_TRUE(Window.grab().save(directory + "/" + name + ".png"));
  }

  QApplication& Application = *qobject_cast<QApplication*>(QCoreApplication::instance());
  Theme Look{Application};
  std::string Time = "12:00:00.250";
  StandIn Amplifier{[this] { return Time; }};
  AmplifierWindow Window{Amplifier};
  std::vector<int> Sent;
};

TEST_F(AmplifierWindowTest, EachKeySendsItsStatus) {
  for (const char* key : {"cmdHigher", "cmdLower", "cmdBoth", "cmdFree", "cmdFree"}) {
    Click(key);
    EXPECT_EQ(Chosen(), key);
  }
  EXPECT_EQ(Sent, (std::vector{128, 64, 192, 0, 0}));
}

TEST_F(AmplifierWindowTest, TheKeysWorkFromTheKeyboard) {
  for (const Qt::Key key : {Qt::Key_H, Qt::Key_L, Qt::Key_B, Qt::Key_F}) {
    const std::size_t before = Sent.size();
    QTest::keyClick(&Window, key, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Sent.size() > before; }));  // after the key comes up
  }
  EXPECT_EQ(Sent, (std::vector{128, 64, 192, 0}));
  Sent.clear();
  Part<QPushButton>("cmdFree").setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Sent, (std::vector{64, 128}));
}

TEST_F(AmplifierWindowTest, TheLampsFollowTheRoutingBytes) {
  EXPECT_EQ(Lit(), "000000");
  Amplifier.Hear("\x4F");
  EXPECT_EQ(Lit(), "111100");
  Amplifier.Hear("\xA1");
  EXPECT_EQ(Lit(), "100001");
  Amplifier.Hear(std::string(1, kReleaseByte));
  EXPECT_EQ(Lit(), "000000");
}

/// Alone the property colours nothing: the style sheet has to be applied again.
TEST_F(AmplifierWindowTest, ALampHasTheColourOfAFedZoneWhileItIsLit) {
  const auto colour = [this] {
    const QImage lamp = Part<QLabel>("lblCurrentZone_0").grab().toImage();
    return lamp.pixelColor(lamp.width() / 2, lamp.height() / 6);
  };
  EXPECT_EQ(colour(), ThemeColorNow("face"));
  Amplifier.Hear("\x41");
  EXPECT_EQ(colour(), ThemeColorNow("fed"));
  Amplifier.Hear(std::string(1, kReleaseByte));
  EXPECT_EQ(colour(), ThemeColorNow("face"));
}

TEST_F(AmplifierWindowTest, FollowsTheDesktopIntoTheDarkAndBack) {
  Window.installEventFilter(&Look);
  const QPoint onCard = Part<QFrame>("paneZones").geometry().topLeft() + QPoint(10, 10);
  const auto card = [&] { return Window.grab().toImage().pixelColor(onCard); };
  FillForAPicture();
  Keep("amplifier");
  for (const Scheme scheme : {Scheme::Dark, Scheme::Light}) {
    QApplication::setPalette(PaletteOf(scheme));
    EXPECT_TRUE(QTest::qWaitFor([&] { return card() == NamedColor("card", scheme); }));
    if (scheme == Scheme::Dark) Keep("amplifier_dark");
  }
}

TEST_F(AmplifierWindowTest, ThePriorityIsThatOfTheLastRoutingByte) {
  EXPECT_EQ(Part<QLabel>("lblLevel").text(), "none");
  Amplifier.Hear("\x41");
  EXPECT_EQ(Part<QLabel>("lblLevel").text(), "low");
  Amplifier.Hear("\x81");
  EXPECT_EQ(Part<QLabel>("lblLevel").text(), "high");
}

TEST_F(AmplifierWindowTest, EachByteIsARowWithItsTimeAndMeaning) {
  Amplifier.Hear("\x43");
  Click("cmdHigher");
  ASSERT_EQ(Rows(), 2);
  EXPECT_EQ(Row(0), "12:00:00.250|desk|67|zones 1 2, low priority");
  EXPECT_EQ(Row(1), "12:00:00.250|amplifier|128|higher call");
}

TEST_F(AmplifierWindowTest, TheOldestRowsGoAndTheNewestIsInSight) {
  const auto some = static_cast<int>(StandIn::kMostNotes);
  Amplifier.Hear(std::string(some, '\x41'));
  Amplifier.Hear("\x42\x43");
  EXPECT_EQ(Rows(), some);
  EXPECT_EQ(Row(some - 2), "12:00:00.250|desk|66|zones 2, low priority");
  auto& table = Part<QTableWidget>("grdBytes");
  EXPECT_TRUE(table.viewport()->rect().contains(table.visualItemRect(table.item(some - 1, 0))));
}

TEST_F(AmplifierWindowTest, AScreenReaderReadsLampsAndKeys) {
  Amplifier.Hear("\x41");
  EXPECT_EQ(Part<QLabel>("lblCurrentZone_0").accessibleName(), "Zone 1 is on");
  EXPECT_EQ(Part<QLabel>("lblCurrentZone_5").accessibleName(), "Zone 6 is off");
  EXPECT_EQ(Part<QLabel>("lblLevel").accessibleName(), "Priority of the desk: low");
  QAccessibleInterface* const key =
      QAccessible::queryAccessibleInterface(&Part<QPushButton>("cmdHigher"));
  EXPECT_EQ(key->text(QAccessible::Name), "Higher call");
  EXPECT_FALSE(Part<QTableWidget>("grdBytes").accessibleName().isEmpty());
}

TEST_F(AmplifierWindowTest, EscapeLeavesItOpen) {
  QTest::keyClick(&Window, Qt::Key_Escape);
  EXPECT_TRUE(Window.isVisible());
}

}  // namespace
}  // namespace marlex
