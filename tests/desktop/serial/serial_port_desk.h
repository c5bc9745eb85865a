#pragma once

#include <gtest/gtest.h>
#include <time.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <vector>

#include "desktop/await.h"
#include "desktop/serial/pseudo_terminal.h"
#include "desktop/serial/tty_serial_port.h"

namespace marlex {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;
namespace fs = std::filesystem;

inline double ThreadCpuMs() {
  timespec used{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
  return used.tv_sec * 1e3 + used.tv_nsec / 1e6;
}

/// A port that looks for its devices in two empty directories of this test.
class SerialPortTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "serial_XXXXXX").string();
    Root = mkdtemp(pattern.data());
    fs::create_directories(Root / "program");
    fs::create_directories(Root / "dev");
    Make();
  }

  void TearDown() override {
    Port.reset();
    fs::remove_all(Root);
  }

  void Make() {
    Port = std::make_unique<TtySerialPort>(
        Loop, SerialPlaces{(Root / "program").string(), (Root / "dev").string()});
    Port->OnFault = [this](const std::string& text) { Faults.push_back(text); };
    Port->OnComm = [this] {
      ++Events;
      Heard += Port->Input();
    };
  }

  void Link(const std::string& name, const std::string& target) {
    fs::remove(Root / name);
    fs::create_symlink(target, Root / name);
  }
  void Link(const std::string& name, const PseudoTerminal& line) { Link(name, line.Path()); }

  testing::AssertionResult Await(const std::function<bool()>& done) {
    return marlex::Await(Loop, done);
  }

  void LetPass(std::chrono::milliseconds time) {
    bool over = false;
    const auto timer = Loop.StartTimer(static_cast<int>(time.count()), [&] { over = true; });
    Loop.PumpUntil([&] { return over; });
    Loop.StopTimer(timer);
  }

  /// Whether the port has this line now: a byte passes through to it.
  bool Reaches(PseudoTerminal& line) {
    Port->Output("?");
    return line.Take().ends_with('?');
  }

  fs::path Root;
  QtEventLoop Loop;
  std::unique_ptr<TtySerialPort> Port;
  std::vector<std::string> Faults;
  std::string Heard;
  int Events = 0;
};

}  // namespace marlex
