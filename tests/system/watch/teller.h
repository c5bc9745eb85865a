#pragma once

#include <map>
#include <string>
#include <vector>

#include "system/stage/stage.h"

namespace marlex::watch {

/// Reports on the standard output, one line each, what a stage's program does: what sounds, which
/// bytes pass, and what the window shows.
class Teller {
 public:
  explicit Teller(const stage::Stage& watched) : Watched(watched) {}

  /// Looks once; to be called many times a second.
  void Look();

  /// Prints a line of our own, with the current time.
  void Say(const std::string& text) const;

 private:
  void TellBytes();
  void TellWindow();
  void TellEvent(const stage::WindowEvent& event);
  void TellRow(const stage::WindowEvent& event);
  void TellZones(double time);
  void TellSound();
  std::string WhatSounds();
  void Tell(double time, const char* kind, const std::string& text) const;

  const stage::Stage& Watched;
  size_t BytesTold = 0;
  size_t EventsTold = 0;
  std::string ZonesTold;
  std::map<std::string, std::string> Seen;  // object and property to the last value seen
  bool IsAnnouncing = false;                // a row is green
  std::string Song;  // file opened last; files are read ahead, and closed early
  std::string Message;
  std::string MediaTold;
  bool WasSounding = false;
  double LevelToldDb = 0;
  double AsToldUntil = 0;  // when the sound last matched what was reported
};

}  // namespace marlex::watch
