#include "simulation/simulated_serial.h"

#include <utility>

namespace marlex {

namespace {

constexpr std::size_t kInputBufferSize = 1024;
constexpr int kLookForDeviceMs = 1000;
constexpr int kByteMask = 0xFF;

}  // namespace

void SimulatedSerial::SetPortOpen(bool open) {
  if (open == Open) return;
  Open = open;
  Buffer.clear();
  Owed.reset();
  Alive = false;
  if (open) OpenNumber = Number;
  Log.Write("serial", open ? "open " + std::to_string(Number) : "close");
  if (!open) return;
  Connect();
  if (Alive) return;
  Loop.Post([this, number = Number] {
    if (OnFault) OnFault("COM" + std::to_string(number) + " cannot be opened.");
  });
}

std::string SimulatedSerial::Input() { return std::exchange(Buffer, {}); }

void SimulatedSerial::Output(std::string_view bytes) {
  for (const char byte : bytes) {
    const int value = static_cast<unsigned char>(byte);
    if (Alive) {
      Send(value);
      continue;
    }
    Log.Write("lost", std::to_string(value));
    if (Open) Owed = value;
  }
}

void SimulatedSerial::Send(int value) {
  Log.Write("send", std::to_string(value));
  SentBytes.push_back({Loop.NowMs(), value});
  if (OnSent) OnSent(value);
}

void SimulatedSerial::Receive(const std::vector<int>& bytes) {
  if (!Alive) return;
  for (const int byte : bytes) {
    if (Buffer.size() < kInputBufferSize) Buffer.push_back(static_cast<char>(byte & kByteMask));
  }
  Loop.Post([this] {
    if (!Buffer.empty() && OnComm) OnComm();
  });
}

void SimulatedSerial::ReceiveIn(std::int64_t delayMs, std::initializer_list<int> bytes) {
  Loop.Schedule(delayMs, [this, late = std::vector<int>(bytes)] { Receive(late); });
}

void SimulatedSerial::Unplug() {
  Plugged = false;
  Alive = false;
}

void SimulatedSerial::Plug() {
  Plugged = true;
  Loop.Schedule(kLookForDeviceMs, [this] { Connect(); });
}

void SimulatedSerial::Reset() {
  Open = false;
  Alive = false;
  Owed.reset();
  Number = 1;
  OpenNumber = 1;
  Buffer.clear();
  OnComm = nullptr;
  OnFault = nullptr;
}

void SimulatedSerial::Connect() {
  Alive = Open && Plugged && OpenNumber == Device;
  if (Alive && Owed) Send(*std::exchange(Owed, std::nullopt));
}

}  // namespace marlex
