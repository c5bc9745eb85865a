// marlex-amplifier: an amplifier without an amplifier, at the far end of a desk's serial line.

#include <QApplication>
#include <QMessageBox>
#include <QTime>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "app/amplifier/installation_folder.h"
#include "desktop/amplifier/amplifier_line.h"
#include "desktop/amplifier/amplifier_window.h"
#include "desktop/process/qt_event_loop.h"
#include "desktop/process/session_end.h"
#include "desktop/windows/theme.h"

namespace marlex {
namespace {

constexpr const char* kUsage =
    "Usage: marlex-amplifier [--box] [FOLDER]\n"
    "Shows an amplifier to try Tolvo Marlex with: its zones, and keys for its status. The link "
    "com1\n"
    "in the installation folder FOLDER, by default ${XDG_DATA_HOME:-~/.local/share}/marlex, leads\n"
    "to it. Start it before Marlex, which then uses it as Com 1.\n"
    "  --box   says in a box as well why it cannot start, for the desktop's menu\n";

struct Options {
  bool Help = false;
  bool Box = false;
  std::optional<std::string> Folder;  // empty for the usual one
};

/// Empty if the arguments are none that the usage allows.
std::optional<Options> Read(std::vector<std::string> arguments) {
  Options options;
  if (arguments == std::vector<std::string>{"-h"} ||
      arguments == std::vector<std::string>{"--help"}) {
    options.Help = true;
    return options;
  }
  if (!arguments.empty() && arguments[0] == "--box") {
    options.Box = true;
    arguments.erase(arguments.begin());
  }
  if (arguments.size() > 1) return std::nullopt;
  if (arguments.empty()) return options;
  if (arguments[0].starts_with("-")) return std::nullopt;
  options.Folder = arguments[0];
  return options;
}

std::string TimeOfDay() { return QTime::currentTime().toString("HH:mm:ss.zzz").toStdString(); }

/// Shows the window until it is closed. Returns what was wrong, if it cannot be shown.
std::string Show(QApplication& application, const Options& options) {
  std::string fault;
  const std::string folder = OpenFolder(options.Folder ? *options.Folder : UsualFolder(), fault);
  if (folder.empty()) return fault;
  QtEventLoop loop;
  const std::string link = folder + "/com1";
  AmplifierLine line(loop, link);
  StandIn amplifier(TimeOfDay);
  Theme theme(application);
  AmplifierWindow window(amplifier);
  window.installEventFilter(&theme);

  const auto showLine = [&] {
    window.ShowLine(
        (line.HasDesk() ? "A desk has the line open: " : "No desk has the line open: ") + link);
  };
  amplifier.Send = [&](char byte) { return line.Send(byte); };
  amplifier.OnChange = [&] { window.ShowAmplifier(); };
  line.OnBytes = [&](std::string_view bytes) { amplifier.Hear(bytes); };
  line.OnDesk = showLine;

  fault = line.Open();
  if (!fault.empty()) return fault;
  const SessionEnd sessionEnd(loop, [] { QApplication::exit(); });
  showLine();
  window.show();
  QApplication::exec();
  return "";
}

int Run(int& argc, char** argv, const Options& options) {
  QApplication application(argc, argv);
  QGuiApplication::setDesktopFileName("marlex-amplifier");
  const std::string fault = Show(application, options);
  if (fault.empty()) return 0;
  std::fprintf(stderr, "marlex-amplifier: %s\n", fault.c_str());
  if (options.Box)
    QMessageBox::critical(nullptr, "Marlex amplifier", QString::fromStdString(fault));
  return 1;
}

}  // namespace
}  // namespace marlex

int main(int argc, char* argv[]) {
  const std::optional<marlex::Options> options =
      marlex::Read(std::vector<std::string>(argv + 1, argv + argc));
  if (options && !options->Help) return marlex::Run(argc, argv, *options);
  std::fputs(marlex::kUsage, options ? stdout : stderr);
  return options ? 0 : 2;
}
