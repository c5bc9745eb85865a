#pragma once

#include "scenario/inspectors/inspector.h"
#include "scenario/inspectors/music_times.h"
#include "scenario/inspectors/playlist_editor.h"
#include "scenario/inspectors/tick.h"

namespace marlex {

/// The clock starts music only with a new minute inside its window, and never when the stop button,
/// a call or the amplifier prevents it. It stops only what it has started, and nothing once the
/// operator has overridden it; an override lasts until the program ends.
class MusicClockInspector : public Inspector {
 public:
  MusicClockInspector(const Scene& scene, const TickInspector& tick,
                      const PlaylistEditorInspector& playlists)
      : Inspector(scene), Tick(tick), Playlists(playlists) {}
  void Check() override;

 private:
  void CheckStart();
  void CheckStop();
  bool IsInWindow(const MusicTimes& times) const;

  const TickInspector& Tick;
  const PlaylistEditorInspector& Playlists;
};

}  // namespace marlex
