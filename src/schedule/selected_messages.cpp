#include "schedule/selected_messages.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

#include "state/media_names.h"
#include "text/numbers.h"
#include "text/paths.h"
#include "text/split.h"

namespace marlex {

std::string SecondsText(long ms) {
  const long tenths = RoundHalfEven(static_cast<double>(ms) / 100);
  std::string text = (tenths < 0 ? "-" : "") + std::to_string(std::labs(tenths) / 10);
  if (tenths % 10 != 0) text += "." + std::to_string(std::labs(tenths) % 10);
  return text;
}

long MillisecondsOf(const std::string& secondsText) {
  double seconds = 0;
  std::from_chars(secondsText.data(), secondsText.data() + secondsText.size(), seconds,
                  std::chars_format::fixed);
  return std::lround(seconds * 1000);
}

SelectedMessages::SelectedMessages(const Settings& settings, FrmPlayers& frmPlayers,
                                   WavWindow& window)
    : TheSettings(settings), WavControl(frmPlayers.WavControl), Window(window) {
  window.AvailWavs.OnClick = [this] { Add(); };
  window.RemoveKey.OnClick = [this] { RemoveOne(); };
  window.RemAll_Key.OnClick = [this] { RemoveAll(); };
  WireList();
}

void SelectedMessages::WireList() {
  ListBox& list = Window.SelectedWavs;
  list.OnGotFocus = [this, &list] {
    if (list.ListCount() > 0) Window.RemoveKey.Enabled = true;
  };
  list.OnMouseDown = [this, &list](MouseButton) { Drag.Start(list); };
  list.OnMouseMove = [this, &list] { Drag.Move(list); };
  list.OnMouseUp = [this] { Drag.End(); };
}

void SelectedMessages::ListAvailable() {
  Window.WavList.SetPattern(kMessagePattern);
  Window.WavList.SetPath(TheSettings.MessageDirectory);
  for (int file = 0; file < Window.WavList.ListCount(); ++file) {
    Window.AvailableFiles.AddItem(Window.WavList.List(file));
    Window.AvailWavs.AddItem(UpToFirstPoint(Window.WavList.List(file)));
  }
}

void SelectedMessages::Add() {
  const int entry = Window.AvailWavs.ListIndex();
  if (entry == ListBox::kNoSelection) return;
  const std::string fileName = Window.AvailableFiles.List(entry);
  Window.SelectedWavs.AddItem(Window.AvailWavs.List(entry));
  Window.SelectedFiles.AddItem(fileName);
  AddToTotal(LengthMs(fileName));
  Window.PrevKey.Enabled = true;
  Window.RemAll_Key.Enabled = true;
}

/// The button can be enabled without a selection, by focus alone; it then removes nothing.
void SelectedMessages::RemoveOne() {
  const int entry = Window.SelectedWavs.ListIndex();
  if (entry == ListBox::kNoSelection) return;
  AddToTotal(-LengthMs(Window.SelectedWavs.List(entry) + kMessageExtension));
  Window.SelectedWavs.RemoveItem(entry);
  Window.SelectedFiles.RemoveItem(entry);
  Window.RemoveKey.Enabled = false;
  if (Window.SelectedWavs.ListCount() > 0) return;
  Window.PrevKey.Enabled = false;
  Window.RemAll_Key.Enabled = false;
}

void SelectedMessages::RemoveAll() {
  ClearSelection();
  Window.lblTotalTime.Caption = "";
}

void SelectedMessages::ClearSelection() {
  Window.SelectedWavs.Clear();
  Window.SelectedFiles.Clear();
  for (CommandButton* button : {&Window.RemoveKey, &Window.RemAll_Key, &Window.PrevKey})
    button->Enabled = false;
}

void SelectedMessages::LoadSelectedMessages(const std::string& messagesText) {
  Window.SelectedWavs.Clear();
  Window.SelectedFiles.Clear();
  for (const std::string& name : SplitCuttingLast(messagesText, ',')) {
    Window.SelectedFiles.AddItem(name);
    Window.SelectedWavs.AddItem(name);
    Window.lblTotalTime.Caption = SecondsText(LengthMs(name + kMessageExtension));
  }
  Window.PrevKey.Enabled = true;
  Window.RemAll_Key.Enabled = true;
}

std::string SelectedMessages::BuildMessagesText() const {
  std::string text;
  for (int entry = 0; entry < Window.SelectedWavs.ListCount(); ++entry)
    text += (entry > 0 ? "," : "") + Window.SelectedWavs.List(entry);
  return text;
}

/// Length of a message in milliseconds; 0 if its file cannot be opened.
long SelectedMessages::LengthMs(const std::string& fileName) {
  WavControl.FileName = TheSettings.MessageDirectory + fileName;
  WavControl.Command("Open");
  const long length = WavControl.Length();
  WavControl.Command("Close");
  return length;
}

void SelectedMessages::AddToTotal(long ms) {
  Window.lblTotalTime.Caption = SecondsText(MillisecondsOf(Window.lblTotalTime.Caption) + ms);
}

}  // namespace marlex
