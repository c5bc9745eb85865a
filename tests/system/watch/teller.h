#pragma once

#include <map>
#include <string>
#include <vector>

#include "system/stage/stage.h"

namespace marlex::watch {

/// Tells on the standard output, one line each, what a stage's program does: what sounds, which
/// bytes pass, and what the window shows.
class Teller {
 public:
  explicit Teller(const stage::Stage& watched) : Watched(watched) {}

  /// Looks once; to be called many times a second.
  void Look();

  /// A line of our own, at this moment.
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
  std::map<std::string, std::string> Seen;  // object and property to the value of the last event
  bool IsAnnouncing = false;                // a row is green
  std::string Song;  // files that were opened last; they are read ahead, and closed early
  std::string Message;
  std::string MediaTold;
  bool WasSounding = false;
  double LevelToldDb = 0;
  double AsToldUntil = 0;  // when what sounds was last as it was told
};

}  // namespace marlex::watch
