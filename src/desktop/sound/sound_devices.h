#pragma once

#include <functional>
#include <memory>
#include <string>

#include "desktop/sound/card_address.h"
#include "desktop/sound/sound_line.h"
#include "desktop/sound/sound_output.h"

namespace marlex {

/// The lines that a microphone passes.
struct MicrophoneLines {
  SoundLine& Microphone;
  SoundLine& Master;
};

/// The device that an engine uses from its start to its end.
struct SoundDevice {
  std::string CardName;  // for the operator, in UTF-8
  bool HasMicrophone = false;
  std::unique_ptr<SoundOutput> Output;  // open; null when there is none
  std::function<std::unique_ptr<SoundOutput>()>
      Reopen;                            // the same card and no other; null while it is gone
  std::function<CardAddress()> Address;  // for any thread
};

/// The default card of the session's sound server.
SoundDevice FindServerDevice(const MicrophoneLines& lines);

/// The ALSA device of that name.
SoundDevice FindCardDevice(const std::string& name, const MicrophoneLines& lines);

}  // namespace marlex
