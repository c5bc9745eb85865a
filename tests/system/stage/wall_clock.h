#pragma once

#include <cstdint>
#include <string>

#include "sound/child_process.h"

namespace marlex::stage {

/// The wall clock that the program under test sees. It can be set at any moment, in both
/// directions; steady time is never touched.
class ShiftedClock {
 public:
  /// `preload` is the library that answers when the program asks for the time.
  ShiftedClock(const std::string& folder, const std::string& preload);
  ~ShiftedClock();

  Environment Variables() const;

  /// Sets the local time, in the form "2031-05-05 08:59:40".
  void Set(const std::string& localTime);

  /// The local time that the program saw at a steady time, "HH:MM:SS.mmm", by the current setting.
  std::string TimeAt(double steadySeconds) const;

  /// The steady time of a local time in the format of `Set`, by the current setting.
  double SteadyTimeOf(const std::string& localTime) const;

 private:
  std::string File;
  std::string Preload;
  std::int64_t* Shift = nullptr;
};

}  // namespace marlex::stage
