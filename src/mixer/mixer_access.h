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

/// What the program stores about a mixer line. Levels are those of the mixer, from 0 (silence) to
/// 65535 (full), unless noted.
struct MixerLineRecord {
  std::uint32_t Channels = 0;
  std::uint32_t LeftLevel = 0;   // as last sent, stereo lines only
  std::uint32_t RightLevel = 0;  // likewise
  /// From start-up on, the slider position of the first channel, from 0 (full) to 65535 (silence).
  /// Once a line that is not stereo has been set, the level as last sent.
  std::uint32_t Level = 0;
  std::uint32_t VolumeControlId = 0;  // 0 if none
  std::uint32_t Mute = 0;             // 0 or 1
  std::uint32_t MuteControlId = 0;    // 0 if none
  std::uint32_t MeterControlId = 0;   // 0 if none
};

/// Access to the sound card's mixer: finds the lines at start, and passes each change of the
/// panel's sliders and check boxes on to them. The rest of the program sets levels and mutes
/// through `SoundLines`, which sets those sliders and check boxes.
class MixerAccess {
 public:
  MixerAccess(MixerFunctions& functions, FrmMxr& frmMxr, Dialogs& dialogs, Process& process,
              const StringTable& strings);

  std::uint32_t MixerHandle = 0;
  std::string MixerName;
  int LastDestinationIndex = -1;
  int SourceLineCount = 0;  // at most 10

  /// Index 0 is the master, index i the source i - 1; empty if there is no speakers line.
  std::vector<MixerLineRecord> MixerLines;

  int MicLine = 0;   // index of the microphone; 0 if there is none
  int WaveLine = 0;  // index of the wave output; 0, the master, if there is none

  /// Opens the mixer, records its lines and loads the panel. Ends the process, after a box, if
  /// there is no mixer or it cannot be opened or read.
  ///
  /// Waits for the answer to that box alone.
  void InitMixer();

  /// Sends the level for the position of `SldrVol(index)`, on a stereo line with the balance of
  /// `SldrPan(index)`. Like `SetLineMute`, has no effect without a speakers line.
  void SetLineVolume(int index);
  void SetLineMute(int index);

  /// Absolute value of a peak meter as the mixer gives it; 0 if it gives none.
  std::int32_t ReadMeter(std::uint32_t meterControlId);

  /// Throws `RuntimeFailure` if the mixer has no such line.
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
  void SendVolume(int index, const std::vector<std::uint32_t>& levels);
  void Fail(const std::string& body);

  MixerFunctions& Functions;
  FrmMxr& TheFrmMxr;
  Dialogs& TheDialogs;
  Process& TheProcess;
  const StringTable& Strings;
};

}  // namespace marlex
