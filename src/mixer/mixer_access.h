#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "i18n/string_table.h"
#include "platform/dialogs.h"
#include "platform/mixer_functions.h"
#include "platform/process.h"
#include "windows/frm_mxr.h"

namespace marlex {

/// What the program keeps of a line of the mixer. Values as the mixer has them, 0 silence to 65535
/// full, but for `Level` after start-up, which is a slider position.
struct MixerLineRecord {
  std::uint32_t Channels = 0;
  std::uint32_t LeftLevel = 0;   // as last sent, stereo lines only
  std::uint32_t RightLevel = 0;  // likewise
  std::uint32_t Level =
      0;  // slider position of the first channel at start; later, on a mono line, the level as sent
  std::uint32_t VolumeControlId = 0;  // 0 if none
  std::uint32_t Mute = 0;             // 0 or 1
  std::uint32_t MuteControlId = 0;    // 0 if none
  std::uint32_t MeterControlId = 0;   // 0 if none
};

/// The door to the sound card's mixer: finds the lines at start and passes each change of the
/// panel's sliders and checks on to them. Others set a level or a mute through `SoundLines`, which
/// writes those sliders and checks.
class MixerAccess {
 public:
  MixerAccess(MixerFunctions& functions, FrmMxr& frmMxr, Dialogs& dialogs, Process& process,
              const StringTable& strings);

  std::uint32_t MixerHandle = 0;
  std::string MixerName;
  int LastDestinationIndex = -1;
  int SourceLineCount = 0;  // at most 10
  std::vector<MixerLineRecord>
      MixerLines;    // 0 is the master, i is source i-1; empty without a speakers line
  int MicLine = 0;   // index of the microphone; 0 is none
  int WaveLine = 0;  // index of the wave output; 0 is the master

  /// Opens the mixer, records its lines and loads the panel. Ends the process, after a box, when
  /// there is no mixer.
  ///
  /// Waits for the answer to that box alone.
  void InitMixer();

  /// Sends the position of `SldrVol(index)`, and on a stereo line the balance of `SldrPan(index)`.
  void SetLineVolume(int index);
  void SetLineMute(int index);

  /// Peak of the line's meter, as the mixer gives it; 0 when it gives none.
  std::int32_t ReadMeter(std::uint32_t meterControlId);

  /// Throws `RuntimeFailure` when the mixer has no such line.
  MixerLineRecord& Record(int index);

  void Close() { Functions.Close(MixerHandle); }

 private:
  bool CheckMixerPresent();
  bool OpenMixer();
  bool ReadMixerCaps();
  void ReadMixerLines();
  void FillRecord(int index, const MixerLineInfo& line);
  void ReadVolume(int index, const MixerLineInfo& line);
  void ReadMute(int index, const MixerLineInfo& line);
  std::uint32_t FindLineControl(const MixerLineInfo& line, std::uint32_t controlType);
  void Fail(const std::string& body);

  MixerFunctions& Functions;
  FrmMxr& TheFrmMxr;
  Dialogs& TheDialogs;
  Process& TheProcess;
  const StringTable& Strings;
};

}  // namespace marlex
