// What every implementation of `SerialPort` promises.

#include <gtest/gtest.h>

#include "contracts/devices/serial_bench.h"

namespace marlex {
namespace {

constexpr int kMomentMs = 50;
constexpr int kLookMs = 1200;  // a missing device is looked for once a second

std::string AllBytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

class SerialPortContract : public testing::TestWithParam<PcKind> {
 protected:
  SerialPortContract() {
    Port.OnComm = [this] {
      ++Events;
      Heard += Port.Input();
    };
    Port.OnFault = [this](const std::string& text) { Faults.push_back(text); };
  }

  void PlugAndOpen() {
    Bench->Plug(1);
    Bench->LetPass(kMomentMs);
    Port.SetPortOpen(true);
  }

  const std::unique_ptr<SerialBench> Bench = MakeSerialBench(GetParam());
  SerialPort& Port = Bench->Port();
  std::string Heard;
  int Events = 0;
  std::vector<std::string> Faults;
};

INSTANTIATE_TEST_SUITE_P(Pc, SerialPortContract, kBothPcs, NameOf);

TEST_P(SerialPortContract, APortIsClosedAndOfNumberOneAtFirst) {
  EXPECT_FALSE(Port.PortOpen());
  EXPECT_EQ(Port.CommPort(), 1);
  EXPECT_EQ(Port.InBufferCount(), 0);
  EXPECT_EQ(Port.Input(), "");
}

TEST_P(SerialPortContract, BytesHaveLeftTheProgramWhenTheCallReturns) {
  PlugAndOpen();
  Port.Output(std::string_view("\0", 1));
  EXPECT_EQ(Bench->Arrived(), std::string("\0", 1));
  Port.Output(AllBytes());
  EXPECT_EQ(Bench->Arrived(), std::string("\0", 1) + AllBytes());
  Port.Output("");
  EXPECT_EQ(Bench->Arrived().size(), 257u);
}

TEST_P(SerialPortContract, EveryByteComesInUnchangedAndAsAnEvent) {
  PlugAndOpen();
  Bench->Send(AllBytes());
  EXPECT_EQ(Events, 0) << "not before the loop delivers it";
  ASSERT_TRUE(Bench->Await([&] { return Heard.size() >= 256; }));
  EXPECT_EQ(Heard, AllBytes());
  EXPECT_EQ(Port.InBufferCount(), 0);
}

TEST_P(SerialPortContract, BytesThatArriveTogetherAreOneEvent) {
  PlugAndOpen();
  Bench->Send("abc");
  ASSERT_TRUE(Bench->Await([&] { return Heard == "abc"; }));
  Bench->Send("d");
  ASSERT_TRUE(Bench->Await([&] { return Heard == "abcd"; }));
  Bench->LetPass(kMomentMs);
  EXPECT_EQ(Events, 2);
}

TEST_P(SerialPortContract, BytesThatNobodyTakesWaitForTheNextEvent) {
  PlugAndOpen();
  Port.OnComm = [this] { ++Events; };
  Bench->Send("ab");
  ASSERT_TRUE(Bench->Await([&] { return Events == 1; }));
  Bench->Send("c");
  ASSERT_TRUE(Bench->Await([&] { return Events == 2; }));
  EXPECT_EQ(Port.InBufferCount(), 3);
  EXPECT_EQ(Port.Input(), "abc");
  EXPECT_EQ(Port.Input(), "");
}

TEST_P(SerialPortContract, TheInputBufferHolds1024BytesAndLosesTheRest) {
  PlugAndOpen();
  Port.OnComm = [this] { ++Events; };
  const std::string block(700, 'x');
  Bench->Send(block);
  ASSERT_TRUE(Bench->Await([&] { return Port.InBufferCount() == 700; }));
  Bench->Send(std::string(324, 'y') + std::string(100, 'z'));
  ASSERT_TRUE(Bench->Await([&] { return Port.InBufferCount() == 1024; }));
  Bench->LetPass(kMomentMs);
  EXPECT_EQ(Port.Input(), block + std::string(324, 'y'));
}

TEST_P(SerialPortContract, OpeningAnOpenPortDoesNothing) {
  PlugAndOpen();
  Port.OnComm = nullptr;
  Bench->Send("ab");
  ASSERT_TRUE(Bench->Await([&] { return Port.InBufferCount() == 2; }));
  Port.SetPortOpen(true);
  EXPECT_EQ(Port.Input(), "ab");
  EXPECT_TRUE(Port.PortOpen());
}

TEST_P(SerialPortContract, AClosedPortHearsAndSendsNothing) {
  Port.Output("a");
  PlugAndOpen();
  Port.SetPortOpen(false);
  Port.SetPortOpen(false);
  EXPECT_FALSE(Port.PortOpen());
  Port.Output("b");
  Bench->Send("x");
  Bench->LetPass(kLookMs);
  EXPECT_EQ(Bench->Arrived(), "");
  EXPECT_EQ(Events, 0);
  EXPECT_TRUE(Faults.empty());
}

TEST_P(SerialPortContract, ClosingEmptiesTheInputBuffer) {
  PlugAndOpen();
  Port.OnComm = nullptr;
  Bench->Send("ab");
  ASSERT_TRUE(Bench->Await([&] { return Port.InBufferCount() == 2; }));
  Port.SetPortOpen(false);
  EXPECT_EQ(Port.InBufferCount(), 0);
  Port.SetPortOpen(true);
  EXPECT_EQ(Port.Input(), "");
}

TEST_P(SerialPortContract, ClosingRightAfterAByteDoesNotDiscardIt) {
  PlugAndOpen();
  Port.Output("A");
  Port.SetPortOpen(false);
  EXPECT_TRUE(Bench->Await([&] { return Bench->Arrived() == "A"; }));
}

TEST_P(SerialPortContract, APortThatCannotBeOpenedIsReportedOnce) {
  Port.SetCommPort(2);
  Port.SetPortOpen(true);
  EXPECT_TRUE(Faults.empty()) << "a report must not come inside the call";
  EXPECT_TRUE(Port.PortOpen());
  ASSERT_TRUE(Bench->Await([&] { return !Faults.empty(); }));
  EXPECT_TRUE(Faults[0].starts_with("COM2")) << Faults[0];
  Bench->LetPass(2 * kLookMs);
  EXPECT_EQ(Faults.size(), 1u);
  Port.SetPortOpen(false);
  Port.SetPortOpen(true);
  EXPECT_TRUE(Bench->Await([&] { return Faults.size() == 2; }));
}

TEST_P(SerialPortContract, AMissingDeviceIsFoundWithoutAWord) {
  PlugAndOpen();
  Bench->Unplug();
  EXPECT_TRUE(Port.PortOpen());
  Bench->Plug(1);
  Bench->LetPass(kLookMs);
  Port.Output("a");
  EXPECT_EQ(Bench->Arrived(), "a");
  Bench->Send("b");
  EXPECT_TRUE(Bench->Await([&] { return Heard == "b"; }));
  EXPECT_TRUE(Faults.empty());
}

TEST_P(SerialPortContract, OfTheBytesThatFoundNoDeviceTheNewestIsSent) {
  Port.SetPortOpen(true);
  Port.Output("a");
  Port.Output("bc");
  Bench->Plug(1);
  ASSERT_TRUE(Bench->Await([&] { return !Bench->Arrived().empty(); }));
  Bench->LetPass(kLookMs);
  EXPECT_EQ(Bench->Arrived(), "c");
  Bench->Unplug();
  Bench->Plug(1);
  Bench->LetPass(kLookMs);
  EXPECT_EQ(Bench->Arrived(), "c") << "once only";
}

TEST_P(SerialPortContract, AByteThatHasArrivedIsNotSentAgain) {
  PlugAndOpen();
  Port.Output("a");
  Bench->Unplug();
  Bench->Plug(1);
  Bench->LetPass(kLookMs);
  EXPECT_EQ(Bench->Arrived(), "a");
}

TEST_P(SerialPortContract, ClosingForgetsTheByteThatFoundNoDevice) {
  Port.SetPortOpen(true);
  Port.Output("a");
  Port.SetPortOpen(false);
  Bench->Plug(1);
  Port.SetPortOpen(true);
  Bench->LetPass(kLookMs);
  EXPECT_EQ(Bench->Arrived(), "");
}

TEST_P(SerialPortContract, ANewNumberCountsFromTheNextOpening) {
  PlugAndOpen();
  Port.SetCommPort(2);
  EXPECT_EQ(Port.CommPort(), 2);
  Port.Output("a");
  EXPECT_EQ(Bench->Arrived(), "a");
  Bench->Unplug();
  Bench->Plug(1);
  Bench->LetPass(kLookMs);
  Port.Output("b");
  EXPECT_EQ(Bench->Arrived(), "ab") << "a lost port comes back as what it was";
  Bench->Unplug();
  Bench->Plug(2);
  Port.SetPortOpen(false);
  Port.SetPortOpen(true);
  Bench->LetPass(kLookMs);
  Port.Output("c");
  EXPECT_EQ(Bench->Arrived(), "abc");
}

TEST_P(SerialPortContract, ThePortMayBeClosedAndOpenedInItsOwnEvent) {
  PlugAndOpen();
  Port.OnComm = [&] {
    Heard += Port.Input();
    Port.SetPortOpen(false);
    Port.SetPortOpen(true);
  };
  Bench->Send("1");
  ASSERT_TRUE(Bench->Await([&] { return Heard == "1"; }));
  Bench->Send("2");
  EXPECT_TRUE(Bench->Await([&] { return Heard == "12"; }));
}

TEST_P(SerialPortContract, APortSaysWhetherItsDeviceIsThere) {
  EXPECT_FALSE(Port.Connected());
  PlugAndOpen();
  EXPECT_TRUE(Port.Connected());
  Bench->Unplug();
  EXPECT_TRUE(Bench->Await([&] { return !Port.Connected(); }));
  EXPECT_TRUE(Port.PortOpen());
  Bench->Plug(1);
  Bench->LetPass(kLookMs);
  EXPECT_TRUE(Port.Connected());
  Port.SetPortOpen(false);
  EXPECT_FALSE(Port.Connected());
}

}  // namespace
}  // namespace marlex
