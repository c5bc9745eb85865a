#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>

#include "amplifier/zones.h"

namespace marlex {

/// One byte on the line, as a person reads it.
struct LineNote {
  std::string Time;
  bool FromDesk;  // else from the amplifier
  int Value;      // 0 to 255
  std::string Meaning;
};

/// An amplifier without an amplifier: lights its zones by the routing bytes that it hears, and
/// sends the status that somebody chooses.
class StandIn {
 public:
  static constexpr std::size_t kMostNotes = 500;

  /// `time` returns the time of day, as the notes are to have it.
  explicit StandIn(std::function<std::string()> time) : Time(std::move(time)) {}

  /// Sends a byte to the desk; returns false if nobody is there to hear it.
  std::function<bool(char)> Send;
  std::function<void()> OnChange;

  /// Bytes have come from the desk.
  void Hear(std::string_view bytes);

  /// Takes this status, with the bits of `kPriorityBits`, and sends it, even if it is the same.
  void SetStatus(int status);

  const Zones& LitZones() const { return Lit; }
  int HeardLevel() const { return Level; }  // with the bits of `kPriorityBits`
  int Status() const { return OwnStatus; }

  /// The newest bytes, the oldest of them first, and how many there have been in all.
  const std::deque<LineNote>& Notes() const { return Noted; }
  std::size_t NoteCount() const { return Count; }

 private:
  void Note(bool fromDesk, int value, const std::string& meaning);

  const std::function<std::string()> Time;
  Zones Lit{};
  int Level = 0;
  int OwnStatus = 0;
  std::deque<LineNote> Noted;
  std::size_t Count = 0;
};

}  // namespace marlex
