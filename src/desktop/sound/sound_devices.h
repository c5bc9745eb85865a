#pragma once

#include <functional>
#include <memory>
#include <string>

#include "desktop/sound/card_address.h"
#include "desktop/sound/sound_line.h"
#include "desktop/sound/sound_output.h"

namespace marlex {

/// The lines that the microphone's sound passes.
struct MicrophoneLines {
  SoundLine& Microphone;
  SoundLine& Master;
};

/// The device that an engine uses from its start to its end.
struct SoundDevice {
  std::string CardName;  // for the operator, in UTF-8
  bool HasMicrophone = false;
  std::unique_ptr<SoundOutput> Output;  // open; null when there is none
  // The same card and no other; null while it is gone.
  std::function<std::unique_ptr<SoundOutput>()> Reopen;
  std::function<CardAddress()> Address;  // may be called on any thread
};

/// Finds the default card of the session's sound server.
SoundDevice FindServerDevice(const MicrophoneLines& lines);

/// Finds the ALSA device of that name.
SoundDevice FindCardDevice(const std::string& name, const MicrophoneLines& lines);

}  // namespace marlex
