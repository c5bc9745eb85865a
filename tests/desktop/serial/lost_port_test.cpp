#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QObject>

#include "desktop/serial/serial_port_desk.h"

namespace marlex {
namespace {

TEST_F(SerialPortTest, APortThatCannotBeOpenedReportsOnceAndIsThenTriedInSilence) {
  Port->SetCommPort(2);
  Port->SetPortOpen(true);
  EXPECT_TRUE(Faults.empty()) << "a report must not come inside the call";
  EXPECT_TRUE(Port->PortOpen());
  ASSERT_TRUE(Await([&] { return !Faults.empty(); }));
  LetPass(2500ms);
  EXPECT_EQ(Faults.size(), 1u);

  PseudoTerminal line;
  Link("dev/com2", line);
  ASSERT_TRUE(Await([&] { return Reaches(line); }));
  EXPECT_EQ(Faults.size(), 1u);

  Port->SetPortOpen(false);
  fs::remove(Root / "dev/com2");
  Port->SetPortOpen(true);
  EXPECT_TRUE(Await([&] { return Faults.size() == 2; }));
}

TEST_F(SerialPortTest, AReportOfAPortThatIsGoneMeanwhileIsDropped) {
  Port->SetPortOpen(true);
  Port.reset();
  LetPass(50ms);
  EXPECT_TRUE(Faults.empty());
}

TEST_F(SerialPortTest, AnAdapterThatComesBackUnderAnotherNameIsOpenedWithoutAWord) {
  auto line = std::make_unique<PseudoTerminal>();
  Link("program/com1", *line);
  Port->SetPortOpen(true);
  ASSERT_TRUE(Reaches(*line));
  line.reset();
  LetPass(100ms);
  PseudoTerminal other;
  Link("program/com1", other);
  ASSERT_TRUE(Await([&] { return Reaches(other); }));
  other.Send("\x80");
  EXPECT_TRUE(Await([&] { return Heard == "\x80"; }));
  EXPECT_TRUE(Faults.empty());
  EXPECT_TRUE(Port->PortOpen());
}

TEST_F(SerialPortTest, AByteThatMeetsTheLossBeforeTheLoopDoesGoesOutAtTheReturn) {
  PseudoTerminal line;
  Link("program/com1", line);
  Port->SetPortOpen(true);
  line.Vanish();
  Port->Output("x");
  PseudoTerminal other;
  Link("program/com1", other);
  std::string arrived;
  ASSERT_TRUE(Await([&] { return !(arrived += other.Take()).empty(); }));
  EXPECT_EQ(arrived, "x");
  EXPECT_TRUE(Faults.empty());
}

TEST_F(SerialPortTest, OfTheBytesThatALostLineHeldBackTheNewestGoesOutOnce) {
  PseudoTerminal line;
  Link("program/com1", line);
  Port->SetPortOpen(true);
  for (int i = 0; i < 50'000; ++i) Port->Output("a");
  Port->Output("z");
  line.Vanish();
  PseudoTerminal other;
  Link("program/com1", other);
  std::string arrived;
  ASSERT_TRUE(Await([&] { return !(arrived += other.Take()).empty(); }));
  EXPECT_EQ(arrived, "z");
  other.Vanish();
  PseudoTerminal third;
  Link("program/com1", third);
  ASSERT_TRUE(Await([&] { return Port->PortOpen() && third.IsOpen(); }));
  LetPass(50ms);
  EXPECT_EQ(third.Take(), "");
}

TEST_F(SerialPortTest, ALineWhoseFarEndIsGoneCostsNothing) {
  PseudoTerminal line;
  Link("program/com1", line);
  Port->SetPortOpen(true);
  line.Vanish();
  int wakeUps = 0;
  QObject scope;
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                   &scope, [&] { ++wakeUps; });
  const double before = ThreadCpuMs();
  LetPass(2s);
  const double cpuMs = ThreadCpuMs() - before;
  RecordProperty("cpuMs", std::to_string(cpuMs));
  RecordProperty("wakeUps", wakeUps);
  EXPECT_LT(cpuMs, 20.0);
  EXPECT_LT(wakeUps, 20);
}

}  // namespace
}  // namespace marlex
