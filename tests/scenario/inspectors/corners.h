#pragma once

#include "scenario/inspectors/bytes.h"
#include "scenario/inspectors/inspector.h"
#include "scenario/inspectors/playlist_editor.h"
#include "scenario/inspectors/preview.h"
#include "scenario/inspectors/sequence_editor.h"

namespace marlex {

/// Counts the events after which the desk is in a rare situation, so that a campaign that no longer
/// reaches one of them is noticed. Has no rules.
class CornerCounter : public Inspector {
 public:
  CornerCounter(const Scene& scene, const SequenceEditorInspector& editor,
                const PreviewInspector& preview, const PlaylistEditorInspector& playlists,
                const BytesInspector& bytes)
      : Inspector(scene),
        SequenceEdits(editor),
        Preview(preview),
        Playlists(playlists),
        Bytes(bytes) {}
  void Check() override;
  void Remember() override;

 private:
  void Count(bool here, const char* corner);
  void CountAmplifier();
  void CountMessages();
  void CountCalls();
  void CountEditor();
  void CountPlaylists();
  void CountSettings();

  const SequenceEditorInspector& SequenceEdits;
  const PreviewInspector& Preview;
  const PlaylistEditorInspector& Playlists;
  const BytesInspector& Bytes;
  bool SettingsShown = false;  // before the event
  bool Router = false;         // before the event
};

}  // namespace marlex
