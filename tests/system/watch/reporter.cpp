#include "reporter.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <string_view>

#include "sound/wait.h"
#include "system/stage/signals.h"

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

void Reporter::Look() {
  ReportWindow();
  ReportBytes();
  if (Watched.Card) ReportSound();
  fflush(stdout);
}

void Reporter::Say(const std::string& text) const { Print(stage::Now(), "watch", text); }

void Reporter::ReportBytes() {
  if (!Watched.StandInWindow) return;
  const std::string meaning = " 3";
  std::vector<stage::WindowEvent> events = Watched.StandInWindow->Events();
  for (; LineEventsReported < events.size(); ++LineEventsReported) {
    const stage::WindowEvent& event = events[LineEventsReported];
    if (event.Object != "frmAmplifier.grdBytes" || !event.Property.ends_with(meaning)) continue;
    const std::string row = event.Property.substr(0, event.Property.size() - meaning.size());
    const bool fromDesk = Watched.StandInWindow->Read(event.Object, row + " 1") == "desk";
    Print(event.Time, "amplifier",
          (fromDesk ? "<- " : "-> ") + Watched.StandInWindow->Read(event.Object, row + " 2") +
              "  " + event.Value);
  }
}

void Reporter::ReportWindow() {
  std::vector<stage::WindowEvent> events = Watched.Window->Events();
  for (; EventsReported < events.size(); ++EventsReported) ReportEvent(events[EventsReported]);
}

void Reporter::ReportEvent(const stage::WindowEvent& event) {
  std::string& seen = Seen[event.Object + " " + event.Property];
  bool isFlag = event.Property == "visible" || event.Property == "enabled";
  bool isNews = seen != event.Value && (!isFlag || !seen.empty() || event.Value == "yes");
  seen = event.Value;
  // How the window was created is not reported; what it then shows, and what changes, is.
  bool isDesign = isFlag && event.Object != "frmMain" &&
                  Watched.Window->Read("frmMain", "visible") != "yes" &&
                  event.Object.starts_with("frmMain");
  if (IsSight(event) && isNews && !isDesign && !event.Value.empty()) {
    Print(event.Time, "window", InWords(event));
  }
  bool isCellColour = event.Property.starts_with("cell ") && event.Property.ends_with(" 0 colour");
  if (event.Object == "frmMain.grdSchedule" && isCellColour) ReportRow(event);
  if (event.Object.starts_with("frmMain.lblCurrentZone") && event.Property == "colour")
    ReportZones(event.Time);
}

/// A row that fires turns navy, and green while its messages play.
void Reporter::ReportRow(const stage::WindowEvent& event) {
  if (event.Value != kGreen && event.Value != kNavy) return;
  IsAnnouncing = event.Value == kGreen;
  std::string row = event.Property.substr(5, event.Property.find(' ', 5) - 5);
  std::string time = Watched.Window->Read(event.Object, "cell " + row + " 0");
  std::string messages = Watched.Window->Read(event.Object, "cell " + row + " 4");
  std::string state =
      event.Value == kGreen ? "green: its messages play" : "navy: the row that fired last";
  Print(event.Time, "window", "schedule row " + time + " " + messages + " is " + state);
}

void Reporter::ReportZones(double time) {
  std::string zones;
  for (int zone = 0; zone < kZones; ++zone) {
    std::string lamp = "frmMain.lblCurrentZone_" + std::to_string(zone);
    std::string colour = Watched.Window->Read(lamp, "colour");
    if (colour == kGreen || colour == kPaleGreen) zones += " " + std::to_string(zone + 1);
  }
  if (zones == ZonesReported) return;
  ZonesReported = zones;
  Print(time, "window", zones.empty() ? "no zone is green" : "green zones:" + zones);
}

void Reporter::ReportSound() {
  constexpr double kChangeDb = 8;
  double now = stage::Now();
  std::string media = WhatSounds();
  double level = Watched.Card->LevelNowDb(kLevelSeconds);
  bool isSounding = level > kSilenceDb;
  bool isSame = media == MediaReported && isSounding == WasSounding &&
                (!isSounding || std::abs(level - LevelReportedDb) < kChangeDb);
  if (isSame) AsReportedUntil = now;
  if (now - AsReportedUntil < kLevelSeconds) return;
  MediaReported = media;
  WasSounding = isSounding;
  LevelReportedDb = level;
  AsReportedUntil = now;
  Print(now, "sound", isSounding ? media + " at " + Number(level) + " dB" : "silence");
}

/// A song that is paused for a message stays open, and a short message is closed before it has
/// ended.
std::string Reporter::WhatSounds() {
  for (const std::string& name : Watched.OpenMedia()) {
    (name.ends_with(".mp3") ? Song : Message) = name;
  }
  return IsAnnouncing ? Message : Song;
}

void Reporter::Print(double time, const char* kind, const std::string& text) const {
  printf("%s  %-9s %s\n", Watched.Clock->TimeAt(time).c_str(), kind, text.c_str());
}

}  // namespace marlex::watch
