#include "desktop/serial/serial_port_desk.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <fstream>

namespace marlex {
namespace {

std::string AllBytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

TEST_F(SerialPortTest, EveryByteGoesThroughUnchangedBothWays) {
  PseudoTerminal line;
  Link("program/com1", line);
  Port->SetPortOpen(true);
  Port->Output(AllBytes());
  EXPECT_EQ(line.Take(), AllBytes());
  line.Send(AllBytes());
  ASSERT_TRUE(Await([&] { return Heard.size() >= 256; }));
  EXPECT_EQ(Heard, AllBytes());
  EXPECT_TRUE(Faults.empty());
}

TEST_F(SerialPortTest, TheLineIsRaw19200EightNoneOneWithoutHandshake) {
  PseudoTerminal line;
  Link("program/com1", line);
  Port->SetPortOpen(true);
  const termios mode = line.Mode();
  EXPECT_EQ(cfgetispeed(&mode), speed_t{B19200});
  EXPECT_EQ(cfgetospeed(&mode), speed_t{B19200});
  EXPECT_EQ(mode.c_cflag & CSIZE, tcflag_t{CS8});
  EXPECT_EQ(mode.c_cflag & (CREAD | CLOCAL), tcflag_t{CREAD | CLOCAL});
  EXPECT_EQ(mode.c_cflag & (PARENB | CSTOPB | CRTSCTS | HUPCL), 0u);
  EXPECT_EQ(mode.c_iflag & (IXON | IXOFF | ISTRIP | ICRNL | INLCR | IGNCR), 0u);
  EXPECT_EQ(mode.c_iflag & (IGNBRK | BRKINT | IGNPAR), 0u);
  EXPECT_EQ(mode.c_iflag & (INPCK | PARMRK), tcflag_t{INPCK | PARMRK});
  EXPECT_EQ(mode.c_oflag & OPOST, 0u);
  EXPECT_EQ(mode.c_lflag & (ECHO | ICANON | ISIG | IEXTEN), 0u);
}

/// Lets the line deliver bytes like a device whose driver marks errors; a pseudo-terminal has no
/// such driver.
void WriteMarksOurselves(PseudoTerminal& line) {
  termios mode = line.Mode();
  mode.c_iflag &= ~static_cast<tcflag_t>(PARMRK);
  line.SetMode(mode);
}

TEST_F(SerialPortTest, BreaksAndBytesWithAnErrorAreNoInput) {
  PseudoTerminal line;
  Link("program/com1", line);
  Port->SetPortOpen(true);
  WriteMarksOurselves(line);
  line.Send(std::string("\xFF\0\0", 3));
  line.Send(std::string("\xFF\0\xC0", 3));
  line.Send(std::string("\xFF\0\xFF", 3));
  LetPass(50ms);
  EXPECT_EQ(Events, 0);
  EXPECT_EQ(Port->InBufferCount(), 0);
  line.Send(
      std::string("a\xFF\0\0\0\xFF\xFF"
                  "b",
                  8));
  ASSERT_TRUE(Await([&] { return Heard.size() >= 4; }));
  EXPECT_EQ(Heard, std::string("a\0\xFF"
                               "b",
                               4));
}

TEST_F(SerialPortTest, AMarkThatIsCutBetweenTwoReadsIsStillOne) {
  PseudoTerminal line;
  Link("program/com1", line);
  Port->SetPortOpen(true);
  WriteMarksOurselves(line);
  for (const char byte : std::string("\xFF\0\x80\xFF\xFF"
                                     "z",
                                     6)) {
    line.Send({byte});
    LetPass(5ms);
  }
  ASSERT_TRUE(Await([&] { return Heard.ends_with('z'); }));
  EXPECT_EQ(Heard, "\xFFz");
}

TEST_F(SerialPortTest, TheLinkBesideTheProgramComesBeforeAllDevices) {
  PseudoTerminal beside, link, board, adapter;
  Link("dev/ttyUSB0", adapter);
  Link("dev/ttyS0", board);
  Link("dev/com1", link);
  Link("program/com1", beside);
  Port->SetPortOpen(true);
  EXPECT_TRUE(Reaches(beside));
  EXPECT_EQ(link.Take() + board.Take() + adapter.Take(), "");
}

TEST_F(SerialPortTest, EachPlaceIsTakenWhenThoseBeforeItAreEmpty) {
  PseudoTerminal link, board, adapter;
  Link("dev/ttyUSB2", adapter);
  Port->SetCommPort(3);
  Port->SetPortOpen(true);
  EXPECT_TRUE(Reaches(adapter));
  Link("dev/ttyS2", board);
  Port->SetPortOpen(false);
  Port->SetPortOpen(true);
  EXPECT_TRUE(Reaches(board));
  Link("dev/com3", link);
  Port->SetPortOpen(false);
  Port->SetPortOpen(true);
  EXPECT_TRUE(Reaches(link));
}

TEST_F(SerialPortTest, ALinkThatPointsNowhereDecidesAllTheSame) {
  PseudoTerminal adapter;
  Link("dev/ttyUSB0", adapter);
  Link("program/com1", (Root / "unplugged").string());
  Port->SetPortOpen(true);
  EXPECT_FALSE(Reaches(adapter));
  EXPECT_TRUE(Await([&] { return Faults.size() == 1; }));
}

TEST_F(SerialPortTest, APortOfTheBoardWithoutHardwareIsPassedOver) {
  constexpr int kTerminals = 4;
  constexpr int kFirstBoardPort = 64;
  constexpr int kLastBoardPort = kFirstBoardPort + 31;
  const std::string name = (Root / "dev/ttyS0").string();
  if (mknod(name.c_str(), S_IFCHR | 0600, makedev(kTerminals, kLastBoardPort)) != 0) {
    GTEST_SKIP() << "only root can make a device file";
  }
  PseudoTerminal adapter;
  Link("dev/ttyUSB0", adapter);
  Port->SetPortOpen(true);
  EXPECT_TRUE(Reaches(adapter));
}

TEST_F(SerialPortTest, AFileThatIsNoTerminalIsAFault) {
  std::ofstream(Root / "program/com1") << "text";
  Port->SetPortOpen(true);
  ASSERT_TRUE(Await([&] { return Faults.size() == 1; }));
  EXPECT_TRUE(Faults[0].starts_with("COM1: ")) << Faults[0];
}

TEST_F(SerialPortTest, AFarEndThatTakesNothingGetsTheNewestBytesLater) {
  PseudoTerminal line;
  Link("program/com1", line);
  Port->SetPortOpen(true);
  const auto begin = SteadyClock::now();
  for (int i = 0; i < 50000; ++i) Port->Output("a");
  Port->Output("z");
  EXPECT_LT(SteadyClock::now() - begin, 5s);
  const double before = ThreadCpuMs();
  LetPass(500ms);
  EXPECT_LT(ThreadCpuMs() - before, 20.0) << "a full line must not keep the loop busy";
  std::string arrived = line.Take();
  ASSERT_TRUE(Await([&] { return (arrived += line.Take()).ends_with('z'); }));
  EXPECT_LT(arrived.size(), 50001u);
  Port->Output("!");
  EXPECT_EQ(line.Take(), "!");
}

TEST_F(SerialPortTest, TheOutputBufferHoldsTheNewest512BytesInTheirOrder) {
  PseudoTerminal line;
  Link("program/com1", line);
  Port->SetPortOpen(true);
  for (int i = 0; i < 50'000; ++i) Port->Output("a");
  LetPass(500ms);  // by then the kernel has taken as much as it can hold
  std::string numbered;
  for (int i = 0; i < 600; ++i) numbered += static_cast<char>(128 + i % 101);
  for (const char byte : numbered) Port->Output({&byte, 1});
  std::string arrived = line.Take();
  ASSERT_TRUE(Await([&] { return (arrived += line.Take()).ends_with(numbered.substr(500)); }));
  EXPECT_EQ(arrived.substr(arrived.size() - 513), "a" + numbered.substr(600 - 512));
}

TEST_F(SerialPortTest, ClosingRightAfterAByteOutDoesNotDiscardIt) {
  for (int round = 0; round < 200; ++round) {
    PseudoTerminal line;
    Link("program/com1", line);
    Port->SetPortOpen(true);
    Port->Output("\x41");
    Port->SetPortOpen(false);
    std::string arrived;
    ASSERT_TRUE(Await([&] { return !(arrived += line.Take()).empty(); })) << round;
    ASSERT_EQ(arrived, "\x41");
  }
}

TEST_F(SerialPortTest, OpeningAnOpenPortAndClosingAClosedOneDoNothing) {
  PseudoTerminal line, other;
  Link("program/com1", line);
  Port->SetPortOpen(false);
  Port->SetPortOpen(true);
  Link("program/com1", other);
  Port->SetPortOpen(true);
  EXPECT_TRUE(Reaches(line));
}

TEST_F(SerialPortTest, AByteIsHeardWhileTheEventOfAnEarlierOneStillWaits) {
  PseudoTerminal line;
  Link("program/com1", line);
  std::string order;
  Port->OnComm = [&] {
    const std::string bytes = Port->Input();
    order += bytes;
    if (bytes != "1") return;
    line.Send("2");
    Loop.PumpUntil([&] { return order.ends_with('2'); });
    order += " first";
  };
  Port->SetPortOpen(true);
  line.Send("1");
  ASSERT_TRUE(Await([&] { return order.ends_with("first"); }));
  EXPECT_EQ(order, "12 first");
}

TEST_F(SerialPortTest, ThePortMayBeClosedAndOpenedInsideItsOwnEvent) {
  PseudoTerminal line;
  Link("program/com1", line);
  Port->OnComm = [&] {
    Heard += Port->Input();
    Port->SetPortOpen(false);
    LetPass(20ms);
    Port->SetPortOpen(true);
  };
  Port->SetPortOpen(true);
  line.Send("1");
  ASSERT_TRUE(Await([&] { return Heard == "1" && Reaches(line); }));
  line.Send("2");
  EXPECT_TRUE(Await([&] { return Heard == "12"; }));
}

TEST_F(SerialPortTest, AFailureInTheEventGoesToTheLoop) {
  PseudoTerminal line;
  Link("program/com1", line);
  std::string failure;
  Loop.OnFailure = [&](const RuntimeFailure& met) { failure = met.what(); };
  Port->OnComm = [] { throw RuntimeFailure("index"); };
  Port->SetPortOpen(true);
  line.Send("1");
  EXPECT_TRUE(Await([&] { return failure == "index"; }));
}

TEST_F(SerialPortTest, TenThousandBytesOfNoiseASecondLeaveTheTimersTheirCadence) {
  PseudoTerminal line;
  Link("program/com1", line);
  Port->SetPortOpen(true);
  std::size_t sent = 0;
  const auto noise = Loop.StartTimer(5, [&] {
    line.Send(std::string(50, static_cast<char>(sent * 37)));
    sent += 50;
  });
  int ticks = 0;
  Loop.StartTimer(20, [&] { ++ticks; });
  const double before = ThreadCpuMs();
  LetPass(2s);
  EXPECT_GE(ticks, 50);
  EXPECT_LT(ThreadCpuMs() - before, 400.0);
  Loop.StopTimer(noise);
  EXPECT_TRUE(Await([&] { return Heard.size() == sent; }));
}

}  // namespace
}  // namespace marlex
