#pragma once

#include <map>
#include <string>
#include <vector>

#include "system/stage/stage.h"

namespace marlex::watch {

/// Reports on the standard output, one line each, what a stage's program does: what sounds, which
/// bytes pass, and what the window shows.
class Reporter {
 public:
  explicit Reporter(const stage::Stage& watched) : Watched(watched) {}

  /// Looks once; to be called many times a second.
  void Look();

  /// Prints a line of our own, with the current time.
  void Say(const std::string& text) const;

 private:
  void ReportBytes();
  void ReportWindow();
  void ReportEvent(const stage::WindowEvent& event);
  void ReportRow(const stage::WindowEvent& event);
  void ReportZones(double time);
  void ReportSound();
  std::string WhatSounds();
  void Print(double time, const char* kind, const std::string& text) const;

  const stage::Stage& Watched;
  size_t LineEventsReported = 0;  // of the amplifier's window
  size_t EventsReported = 0;
  std::string ZonesReported;
  std::map<std::string, std::string> Seen;  // object and property to the last value seen
  bool IsAnnouncing = false;                // a row is green
  std::string Song;  // file opened last; files are read ahead, and closed early
  std::string Message;
  std::string MediaReported;
  bool WasSounding = false;
  double LevelReportedDb = 0;
  double AsReportedUntil = 0;  // when the sound last matched what was reported
};

}  // namespace marlex::watch
