#pragma once

#include <string>

#include "controls/list_drag.h"
#include "state/settings.h"
#include "windows/frm_players.h"
#include "windows/wav_window.h"

namespace marlex {

/// The messages of the sequence in the editor, in playing order, and their total time.
class SelectedMessages {
 public:
  SelectedMessages(const Settings& settings, FrmPlayers& frmPlayers, WavWindow& window);

  ListDrag Drag;  // a mouse drag in SelectedWavs

  /// Lists the messages in the message directory.
  void ListAvailable();

  /// Fills the list from names separated by commas. Deliberate: the total then shows the length of
  /// the last message only.
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

/// `ms` milliseconds as the total shows them: in seconds, rounded to one decimal place, ties to the
/// even digit, and without a decimal of 0.
std::string SecondsText(long ms);

/// The number of seconds at the beginning of the text, in milliseconds; 0 if there is none.
long MillisecondsOf(const std::string& secondsText);

}  // namespace marlex
