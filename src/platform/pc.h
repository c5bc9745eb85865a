#pragma once

#include "platform/dialogs.h"
#include "platform/directories.h"
#include "platform/event_loop.h"
#include "platform/media_check.h"
#include "platform/mixer_functions.h"
#include "platform/process.h"
#include "platform/profile_files.h"
#include "platform/serial_port.h"
#include "platform/song_player.h"
#include "platform/sound_health.h"
#include "platform/system_log.h"
#include "platform/wall_clock.h"
#include "platform/wave_player.h"

namespace marlex {

/// The PC that a system runs on, real or simulated. Must outlive the system.
struct Pc {
  EventLoop& Loop;
  WallClock& Clock;
  ProfileFiles& Profiles;
  Directories& Files;
  SerialPort& TolvoPort;
  WavePlayer& WavPlayer;
  WavePlayer& WavControl;
  SongPlayer& MP3Player;
  SoundHealth& Sound;
  MediaCheck& Media;
  MixerFunctions& Mixer;
  Dialogs& Boxes;
  Process& TheProcess;
  SystemLog& Log;
};

}  // namespace marlex
