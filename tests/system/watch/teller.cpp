#include "teller.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <string_view>

#include "system/stage/signals.h"
#include "system/stage/wait.h"

namespace marlex::watch {
namespace {

constexpr double kSilenceDb = -60;
constexpr double kLevelSeconds =
    0.4;  // a level is measured over this long, so that single notes do not show
constexpr int kZones = 6;

/// What deserves its own line: a control and the property that the operator would look at.
struct Sight {
  std::string_view Object;
  std::string_view Property;
};
constexpr std::array kSights = {
    Sight{"frmMain.lblMP3Number", "text"}, Sight{"frmMain.lblMP3Length", "text"},
    Sight{"frmMain.lblHiPrio", "visible"}, Sight{"frmMain.frBGMusic", "text"},
    Sight{"frmMain.lstPlaylist", "entry"}, Sight{"frmMain.cmdPlay", "enabled"},
    Sight{"frmMain.cmdSkip", "enabled"},   Sight{"frmMain", "visible"},
    Sight{"frmLogo", "visible"},           Sight{"frmlangSel", "visible"},
    Sight{"frmSettings", "visible"},       Sight{"QMessageBox", "text"},
};

bool IsSight(const stage::WindowEvent& event) {
  for (const Sight& sight : kSights) {
    if (event.Object == sight.Object && event.Property == sight.Property) return true;
  }
  return false;
}

/// "lblMP3Number 1/4", "cmdPlay disabled", "frmLogo shown".
std::string InWords(const stage::WindowEvent& event) {
  std::string name = event.Object.starts_with("frmMain.") ? event.Object.substr(8) : event.Object;
  bool isYes = event.Value == "yes";
  if (event.Property == "visible") return name + (isYes ? " shown" : " hidden");
  if (event.Property == "enabled") return name + (isYes ? " enabled" : " disabled");
  return name + " " + event.Value;
}

std::string Number(double value) {
  char text[16];
  snprintf(text, sizeof(text), "%.0f", value);
  return text;
}

}  // namespace

void Teller::Look() {
  TellWindow();
  TellBytes();
  if (Watched.Card) TellSound();
  fflush(stdout);
}

void Teller::Say(const std::string& text) const { Tell(stage::Now(), "watch", text); }

void Teller::TellBytes() {
  if (!Watched.Line) return;
  std::vector<stage::LineByte> bytes = Watched.Line->Received();
  for (; BytesTold < bytes.size(); ++BytesTold) {
    const stage::LineByte& byte = bytes[BytesTold];
    Tell(byte.Time, "amplifier",
         "<- " + std::to_string(byte.Value) + "  " + stage::DescribeRouting(byte.Value));
  }
}

void Teller::TellWindow() {
  std::vector<stage::WindowEvent> events = Watched.Window->Events();
  for (; EventsTold < events.size(); ++EventsTold) TellEvent(events[EventsTold]);
}

void Teller::TellEvent(const stage::WindowEvent& event) {
  std::string& seen = Seen[event.Object + " " + event.Property];
  bool isFlag = event.Property == "visible" || event.Property == "enabled";
  bool isNews = seen != event.Value && (!isFlag || !seen.empty() || event.Value == "yes");
  seen = event.Value;
  // How the window was created is not reported; what it then shows, and what changes, is.
  bool isDesign = isFlag && event.Object != "frmMain" &&
                  Watched.Window->Read("frmMain", "visible") != "yes" &&
                  event.Object.starts_with("frmMain");
  if (IsSight(event) && isNews && !isDesign && !event.Value.empty()) {
    Tell(event.Time, "window", InWords(event));
  }
  bool isCellColour = event.Property.starts_with("cell ") && event.Property.ends_with(" 0 colour");
  if (event.Object == "frmMain.grdSchedule" && isCellColour) TellRow(event);
  if (event.Object.starts_with("frmMain.lblCurrentZone") && event.Property == "colour")
    TellZones(event.Time);
}

/// A row that fires turns navy, and green while its messages play.
void Teller::TellRow(const stage::WindowEvent& event) {
  if (event.Value != kGreen && event.Value != kNavy) return;
  IsAnnouncing = event.Value == kGreen;
  std::string row = event.Property.substr(5, event.Property.find(' ', 5) - 5);
  std::string time = Watched.Window->Read(event.Object, "cell " + row + " 0");
  std::string messages = Watched.Window->Read(event.Object, "cell " + row + " 4");
  std::string state =
      event.Value == kGreen ? "green: its messages play" : "navy: the row that fired last";
  Tell(event.Time, "window", "schedule row " + time + " " + messages + " is " + state);
}

void Teller::TellZones(double time) {
  std::string zones;
  for (int zone = 0; zone < kZones; ++zone) {
    std::string lamp = "frmMain.lblCurrentZone_" + std::to_string(zone);
    if (Watched.Window->Read(lamp, "colour") == kGreen) zones += " " + std::to_string(zone + 1);
  }
  if (zones == ZonesTold) return;
  ZonesTold = zones;
  Tell(time, "window", zones.empty() ? "no zone is green" : "green zones:" + zones);
}

void Teller::TellSound() {
  constexpr double kChangeDb = 8;
  double now = stage::Now();
  std::string media = WhatSounds();
  double level = Watched.Card->LevelNowDb(kLevelSeconds);
  bool isSounding = level > kSilenceDb;
  bool isSame = media == MediaTold && isSounding == WasSounding &&
                (!isSounding || std::abs(level - LevelToldDb) < kChangeDb);
  if (isSame) AsToldUntil = now;
  if (now - AsToldUntil < kLevelSeconds) return;
  MediaTold = media;
  WasSounding = isSounding;
  LevelToldDb = level;
  AsToldUntil = now;
  Tell(now, "sound", isSounding ? media + " at " + Number(level) + " dB" : "silence");
}

/// A song that is paused for a message stays open, and a short message is closed before it has
/// ended.
std::string Teller::WhatSounds() {
  for (const std::string& name : Watched.OpenMedia()) {
    (name.ends_with(".mp3") ? Song : Message) = name;
  }
  return IsAnnouncing ? Message : Song;
}

void Teller::Tell(double time, const char* kind, const std::string& text) const {
  printf("%s  %-9s %s\n", Watched.Clock->TimeAt(time).c_str(), kind, text.c_str());
}

}  // namespace marlex::watch
