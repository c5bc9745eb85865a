#include "contracts/devices/serial_bench.h"

#include <filesystem>
#include <optional>

#include "desktop/await.h"
#include "desktop/files/temporary_directory.h"
#include "desktop/serial/pseudo_terminal.h"
#include "desktop/serial/tty_serial_port.h"
#include "simulation/simulated_pc.h"

namespace marlex {

namespace {

class SimulatedSerialBench : public SerialBench {
 public:
  SimulatedSerialBench() { Pc.Serial.Unplug(); }

  SerialPort& Port() override { return Pc.Serial; }

  void Plug(int number) override {
    Pc.Serial.Device = number;
    Pc.Serial.Plug();
  }
  void Unplug() override { Pc.Serial.Unplug(); }

  void Send(const std::string& bytes) override {
    std::vector<int> values;
    for (const char byte : bytes) values.push_back(static_cast<unsigned char>(byte));
    Pc.Serial.Receive(values);
  }
  const std::string& Arrived() override {
    for (; Taken < Pc.Serial.Sent().size(); ++Taken)
      AllArrived += static_cast<char>(Pc.Serial.Sent()[Taken].Value);
    return AllArrived;
  }

  bool Await(const std::function<bool()>& done) override {
    return Pc.Loop.RunUntil(done, kLimitMs);
  }
  void LetPass(int ms) override { Pc.Loop.RunFor(ms); }

 private:
  static constexpr int kLimitMs = 30'000;

  SimulatedPc Pc;
  std::size_t Taken = 0;
  std::string AllArrived;
};

class RealSerialBench : public SerialBench {
 public:
  SerialPort& Port() override { return ThePort; }

  void Plug(int number) override {
    Terminal.emplace();
    Link = Directory.Path("com" + std::to_string(number));
    std::filesystem::create_symlink(Terminal->Path(), Link);
  }
  void Unplug() override {
    Arrived();
    Terminal.reset();
    std::filesystem::remove(Link);
    LetPass(kHangUpMs);
  }

  void Send(const std::string& bytes) override { Terminal->Send(bytes); }
  const std::string& Arrived() override {
    if (Terminal) AllArrived += Terminal->Take();
    return AllArrived;
  }

  bool Await(const std::function<bool()>& done) override { return marlex::Await(Loop, done); }
  void LetPass(int ms) override {
    bool over = false;
    const auto timer = Loop.StartTimer(ms, [&] { over = true; });
    Loop.PumpUntil([&] { return over; });
    Loop.StopTimer(timer);
  }

 private:
  static constexpr int kHangUpMs = 50;  // by then the port has noticed

  test::TemporaryDirectory Directory;
  QtEventLoop Loop;
  TtySerialPort ThePort{Loop, {Directory.Path(), Directory.Path("dev")}};
  std::optional<PseudoTerminal> Terminal;
  std::string Link;
  std::string AllArrived;
};

}  // namespace

std::unique_ptr<SerialBench> MakeSerialBench(PcKind pc) {
  if (pc == PcKind::Simulated) return std::make_unique<SimulatedSerialBench>();
  return std::make_unique<RealSerialBench>();
}

}  // namespace marlex
