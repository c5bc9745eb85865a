#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>

#include "desktop/sound/card_address.h"
#include "desktop/sound/sound_line.h"
#include "desktop/sound/sound_output.h"

namespace marlex {

/// The lines that the microphone's sound passes, and what its adapter reports.
struct MicrophoneLines {
  SoundLine& Microphone;
  SoundLine& Master;
  std::atomic<bool>& IsGone;  // as far as is known
};

/// The device that an engine uses from its start to its end.
struct SoundDevice {
  std::string CardName;  // for the operator, in UTF-8
  bool HasMicrophone = false;
  std::unique_ptr<SoundOutput> Output;  // open; null when there is none
  // The same card and no other; null while it is gone.
  std::function<std::unique_ptr<SoundOutput>()> Reopen;
  std::function<CardAddress()> Address;  // may be called on any thread
  // Whether the server has no card and pretends to have one; likewise.
  std::function<bool()> IsPretended = [] { return false; };
};

/// Finds the default card of the session's sound server.
SoundDevice FindServerDevice(const MicrophoneLines& lines);

/// Finds the ALSA device of that name.
SoundDevice FindCardDevice(const std::string& name, const MicrophoneLines& lines);

}  // namespace marlex
