#pragma once

#include <string>

#include "controls/list_drag.h"
#include "state/settings.h"
#include "windows/frm_players.h"
#include "windows/wav_window.h"

namespace marlex {

/// The messages of the sequence under work in the editor, in playing order, and their total time.
class SelectedMessages {
 public:
  SelectedMessages(const Settings& settings, FrmPlayers& frmPlayers, WavWindow& window);

  ListDrag Drag;  // a mouse drag in SelectedWavs

  /// Lists the messages that the directory holds.
  void ListAvailable();

  /// The list from its text. The total then shows the length of the last message alone. This is
  /// meant.
  void LoadSelectedMessages(const std::string& messagesText);

  /// All names in list order, joined by commas.
  std::string BuildMessagesText() const;

 private:
  void Add();        // a click in AvailWavs
  void RemoveOne();  // RemoveKey
  void RemoveAll();  // RemAll_Key
  void ClearSelection();
  long LengthMs(const std::string& fileName);
  void AddToTotal(long ms);
  void WireList();

  const Settings& TheSettings;
  WavePlayer& WavControl;
  WavWindow& Window;
};

/// Seconds as the total shows them: milliseconds rounded to one decimal place, a half to the even
/// digit; no decimal where it is 0.
std::string SecondsText(long ms);

/// Milliseconds of the number of seconds that the text begins with; 0 where it begins with none.
long MillisecondsOf(const std::string& secondsText);

}  // namespace marlex
