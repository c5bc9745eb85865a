#include <gtest/gtest.h>

#include <cerrno>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "desktop/files/open_descriptors.h"
#include "desktop/files/watched_calls.h"
#include "desktop/serial/serial_port_desk.h"

namespace marlex {
namespace {

constexpr int kErrors[] = {EIO, EINTR, EAGAIN, ENXIO};

using test::OpenDescriptors;
using test::WatchedCalls;

/// A port with a line of its own.
class Station {
 public:
  Station(QtEventLoop& loop, const fs::path& root) : Loop(loop) {
    fs::create_directories(root);
    fs::create_symlink(Line.Path(), root / "com1");
    Port = std::make_unique<TtySerialPort>(loop, SerialPlaces{root.string(), root.string()});
    Port->OnComm = [this] { Heard += Port->Input(); };
    Port->OnFault = [this](const std::string&) { ++Faults; };
  }

  /// Opens the port, sends, receives, and sends again, while the plan makes a call fail. Returns
  /// the calls.
  std::vector<std::string> Live(const WatchedCalls::Plan& plan) {
    WatchedCalls watched(plan);
    Port->SetPortOpen(true);
    Port->Output("1");
    Line.Send("\x80");
    LetDeliver();
    Port->Output("2");
    LetDeliver();
    return watched.Made;
  }

  /// Whether the amplifier has got the newest byte, and is heard.
  bool Works() {
    Sent += Line.Take();
    if (!Sent.ends_with('2') || !Port->Connected()) return false;
    if (!Asked) Line.Send("\x40");
    Asked = true;
    return Heard.ends_with('\x40');
  }

  int Faults = 0;

 private:
  /// Time for what is ready, less than for a second try of the port.
  void LetDeliver() {
    constexpr int kDeliverMs = 20;
    bool over = false;
    const auto timer = Loop.StartTimer(kDeliverMs, [&] { over = true; });
    Loop.PumpUntil([&] { return over; });
    Loop.StopTimer(timer);
  }

  QtEventLoop& Loop;
  PseudoTerminal Line;
  std::unique_ptr<TtySerialPort> Port;
  std::string Heard;
  std::string Sent;
  bool Asked = false;
};

TEST_F(SerialPortTest, AnyCallMayFailOnceAndTheNewestByteArrives) {
  std::vector<std::unique_ptr<Station>> stations;
  const auto makeStation = [&]() -> Station& {
    const fs::path root = Root / std::to_string(stations.size());
    return *stations.emplace_back(std::make_unique<Station>(Loop, root));
  };
  const std::vector<std::string> calls = makeStation().Live({});
  ASSERT_GE(calls.size(), 8u);
  stations.clear();
  LetPass(10ms);
  fs::remove_all(Root / "0");
  const long descriptors = OpenDescriptors();
  for (std::size_t at = 1; at <= calls.size(); ++at) {
    for (const int error : kErrors) makeStation().Live({.At = at, .Error = error});
  }
  // A port whose device is gone looks for it after a second: all at the same time.
  for (std::size_t station = 0; station < stations.size(); ++station) {
    SCOPED_TRACE("call " + calls[station / std::size(kErrors)] + ", error " +
                 std::to_string(kErrors[station % std::size(kErrors)]));
    EXPECT_TRUE(Await([&] { return stations[station]->Works(); }));
    EXPECT_LE(stations[station]->Faults, 1);
  }
  stations.clear();
  LetPass(10ms);
  EXPECT_EQ(OpenDescriptors(), descriptors);
  std::cout << calls.size() << " calls, " << calls.size() * std::size(kErrors) << " runs\n";
}

}  // namespace
}  // namespace marlex
