#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "byte_reader.h"
#include "sound/child_process.h"
#include "virtual_display.h"

namespace marlex::stage {

/// One change in what the window shows.
struct WindowEvent {
  double Time = 0;     // steady clock, seconds
  std::string Object;  // "frmMain.cmdPlay", or the plain name of an action
  std::string
      Property;  // "text", "enabled", "visible", "checked", "colour", "row", "cell 1 0", ...
  std::string Value;
};

/// Our end of the probe inside the program: mirrors what its windows show, and where things are.
class ProbeLink {
 public:
  /// `pluginFolder` holds generic/<probe library>.
  ProbeLink(const std::string& folder, const std::string& pluginFolder);
  ~ProbeLink();

  Environment Variables() const;

  /// Forgets the last program and waits until the probe of the next one has connected; false when
  /// the limit passed first.
  bool AwaitProgram(double limitSeconds);

  /// What an object shows now; empty when there is no such object or property. The window may be
  /// left out ("cmdPlay") when only one has a control of that name.
  std::string Read(const std::string& object, const std::string& property) const;

  /// All changes so far, oldest first.
  std::vector<WindowEvent> Events() const;

  /// Place of a control, an item of an open menu, or a cell ("grdSchedule 1 0"; row 0 is the
  /// heading). Empty when it cannot be seen.
  std::optional<ScreenArea> Geometry(const std::string& object);

  /// What a window shows, a line for each of its parts, as the sheets of all windows have it; empty
  /// when it cannot be seen.
  std::string Parts(const std::string& window);

 private:
  std::string Ask(const std::string& question);
  void Accept(double time, std::string_view bytes);
  void TakeLine(const std::string& line);

  std::string SocketPath;
  std::string PluginFolder;
  int Listener = -1;
  mutable std::mutex Lock;
  std::string Received;
  std::map<std::string, std::map<std::string, std::string>> Shown;
  std::vector<WindowEvent> Log;
  std::map<int, std::string> Answers;
  int LastQuery = 0;
  std::unique_ptr<ByteReader> Reader;
};

}  // namespace marlex::stage
