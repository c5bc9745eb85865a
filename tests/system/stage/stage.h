#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "amplifier.h"
#include "log_service.h"
#include "probe_link.h"
#include "recorder.h"
#include "sound/child_process.h"
#include "sound/sound_server.h"
#include "virtual_display.h"
#include "wall_clock.h"

namespace marlex::stage {

/// How a stage is set up.
struct StageOptions {
  std::string Program;       // the program's binary; it is copied into the installation
  std::string Helpers;       // folder of the probe and of the clock's library
  std::string Installation;  // an existing folder; empty creates a temporary one
  SoundCards Cards;
  bool HasAmplifier = true;
  std::string StandIn;  // marlex-amplifier, for the amplifier's place; empty for the stage's own
  bool HasSound = true;
  Environment Variables;  // for the program, on top of the stage's own
};

/// Everything that the program meets on the operator's desk, created for one test: a display, a
/// sound card that is recorded, an amplifier on a serial line, a clock, and the installation. All
/// of it ends with the object, and in any case with the test's process.
class Stage {
 public:
  explicit Stage(const StageOptions& options);
  ~Stage();

  /// Path of a file of the installation.
  std::string File(const std::string& name) const { return Installation + "/" + name; }
  std::string ReadFile(const std::string& name) const;
  std::string ProgramLog() const;  // what the program wrote to its outputs
  void WriteFile(const std::string& name, const std::string& content) const;

  /// Starts the stand-in, if there is to be one, and then the program at a wall-clock time such as
  /// "2031-05-05 08:59:40"; an empty time leaves the clock as it is.
  void Start(const std::string& localTime = "");

  /// Starts a second program next to the first, with its own link to the windows.
  std::unique_ptr<ChildProcess> StartSecond(ProbeLink& link) const;

  /// A link to the windows of the program that `StartSecond` starts.
  std::unique_ptr<ProbeLink> MakeSecondLink() const;

  /// Waits until a property of what the window shows has a value.
  bool AwaitText(const std::string& object, const std::string& text, double limitSeconds = 30);
  bool Await(const std::string& object, const std::string& property, const std::string& value,
             double limitSeconds = 30);

  /// Clicks the centre of a control, a menu item or a cell, once it can be seen and has come to
  /// rest. False when it never could be seen.
  bool Click(const std::string& object);

  bool DoubleClick(const std::string& object);

  /// Presses the mouse button on the centre of a control; `Display->Release()` releases it.
  bool Press(const std::string& object);

  /// The same in a window that is read through another link.
  bool Click(const std::string& object, ProbeLink& link);

  /// Ends the recording of the card and begins a new one. For use after the sound server was
  /// restarted.
  void StartRecording();

  /// Names of the media files that the program has open now.
  std::vector<std::string> OpenMedia() const;

  std::string Folder;        // for this stage's own files: logs, sockets
  std::string Installation;  // the program's folder
  std::unique_ptr<VirtualDisplay> Display;
  std::unique_ptr<SoundServer> Server;
  std::unique_ptr<Recorder> Card;
  std::unique_ptr<Amplifier> Line;
  std::unique_ptr<ShiftedClock> Clock;
  std::unique_ptr<LogService> Log;
  std::unique_ptr<ProbeLink> Window;
  std::unique_ptr<ChildProcess> Program;
  std::unique_ptr<ProbeLink> StandInWindow;  // to the right of the program's
  std::unique_ptr<ChildProcess> StandIn;
  Environment MoreVariables;  // for the program, on top of the stage's own

 private:
  std::optional<ScreenArea> AwaitPlace(const std::string& object, ProbeLink& link) const;
  Environment Surroundings(const ProbeLink& link) const;
  Command StartCommand(const std::vector<std::string>& arguments, const ProbeLink& link) const;
  void StartStandIn();

  std::string Helpers;
  std::string FirstOutput;
  std::string StandInProgram;
};

}  // namespace marlex::stage
