#pragma once

#include <memory>

#include "desktop/files/disk_directories.h"
#include "desktop/files/disk_profile_files.h"
#include "desktop/mixer/engine_mixer.h"
#include "desktop/process/posix_process.h"
#include "desktop/process/qt_event_loop.h"
#include "desktop/process/syslog.h"
#include "desktop/process/system_clock.h"
#include "desktop/serial/tty_serial_port.h"
#include "desktop/sound/engine_song_player.h"
#include "desktop/sound/engine_wave_player.h"
#include "desktop/sound/sound_engine.h"
#include "desktop/sound/sound_file_check.h"
#include "desktop/windows/qt_dialogs.h"
#include "platform/pc.h"

namespace marlex {

/// The real PC on the operator's desk. Needs a running `QApplication`.
struct DesktopPc {
  QtEventLoop Loop;
  SystemClock Clock;
  DiskProfileFiles Profiles;
  DiskDirectories Files;
  PosixProcess TheProcess;
  Syslog Log;
  TtySerialPort TolvoPort{Loop, {.ProgramDirectory = TheProcess.ApplicationDirectory()}};
  SoundEngine Sound{Loop};
  EngineWavePlayer WavPlayer{Sound, Loop};
  EngineWavePlayer WavControl{Sound, Loop};
  EngineSongPlayer MP3Player{Sound};
  SoundFileCheck Media;
  std::unique_ptr<MixerFunctions> Mixer = MakeEngineMixer(Loop, Sound);
  QtDialogs Boxes{Loop, Files};

  Pc Ports() {
    return {.Loop = Loop,
            .Clock = Clock,
            .Profiles = Profiles,
            .Files = Files,
            .TolvoPort = TolvoPort,
            .WavPlayer = WavPlayer,
            .WavControl = WavControl,
            .MP3Player = MP3Player,
            .Sound = Sound,
            .Media = Media,
            .Mixer = *Mixer,
            .Boxes = Boxes,
            .TheProcess = TheProcess,
            .Log = Log};
  }
};

}  // namespace marlex
