#include "wayland_compositor.h"

#include <pwd.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "sound/wait.h"

namespace marlex::stage {
namespace {

namespace fs = std::filesystem;

constexpr double kStartLimitSeconds = 30;
constexpr const char* kSettings = R"(
xwayland disable
default_border none
default_floating_border none
focus_follows_mouse no
for_window [app_id=".*"] floating enable, move absolute position 0 0
)";

std::string MakeFolder() {
  std::string name = (fs::temp_directory_path() / "marlex-wayland-XXXXXX").string();
  if (!mkdtemp(name.data())) throw std::runtime_error("Cannot make a folder in " + name);
  return name;
}

void WriteSettings(const std::string& file) {
  std::ofstream stream(file);
  stream << "output * resolution " << VirtualDisplay::kWidth << "x" << VirtualDisplay::kHeight
         << " position 0 0\noutput * bg " << WaylandCompositor::kBackdrop << " solid_color"
         << kSettings;
}

/// The compositor refuses to run as root: then its folder and its process belong to nobody.
std::vector<std::string> WithoutRoot(const std::string& folder) {
  if (geteuid() != 0) return {};
  const passwd* nobody = getpwnam("nobody");
  if (!nobody || chown(folder.c_str(), nobody->pw_uid, nobody->pw_gid) != 0)
    throw std::runtime_error("Cannot give to nobody: " + folder);
  // The change of the user cancels the death signal of `Command`.
  return {"setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups", "--pdeathsig", "KILL"};
}

}  // namespace

WaylandCompositor::WaylandCompositor(VirtualDisplay& display)
    : Display(display), Folder(MakeFolder()) {
  WriteSettings(Folder + "/settings");
  Command command;
  command.Arguments = WithoutRoot(Folder);
  for (const char* word : {"sway", "--config"}) command.Arguments.push_back(word);
  command.Arguments.push_back(Folder + "/settings");
  command.Variables = {{"DISPLAY", display.Variables().at("DISPLAY")},
                       {"HOME", Folder},
                       {"XDG_RUNTIME_DIR", Folder},
                       {"SWAYSOCK", Folder + "/control"},
                       {"WLR_BACKENDS", "x11"},
                       {"WLR_RENDERER", "pixman"},
                       {"DBUS_SESSION_BUS_ADDRESS", "disabled:"}};
  command.LogFile = Folder + "/log";
  command.GoesFirst = true;
  Compositor = std::make_unique<ChildProcess>(command);
  const auto isOver = [this] { return !Compositor->IsRunning() || IsReady(); };
  if (!WaitUntil(isOver, kStartLimitSeconds) || !Compositor->IsRunning())
    throw std::runtime_error("The Wayland compositor did not start:\n" + LogText());
}

WaylandCompositor::~WaylandCompositor() {
  Compositor.reset();
  std::error_code ignored;
  fs::remove_all(Folder, ignored);
}

Environment WaylandCompositor::Variables() const {
  return {
      {"QT_QPA_PLATFORM", "wayland"}, {"WAYLAND_DISPLAY", Folder + "/wayland-1"}, {"DISPLAY", ""}};
}

bool WaylandCompositor::CloseWindow(const std::string& title) const {
  Command command;
  command.Arguments = {"swaymsg", "--socket", Folder + "/control",
                       "[title=\"^" + title + "$\"] kill"};
  return Run(command) == 0;
}

/// When it covers the whole display.
bool WaylandCompositor::IsReady() const {
  return Display.ColourAt(VirtualDisplay::kWidth - 1, VirtualDisplay::kHeight - 1) == kBackdrop;
}

std::string WaylandCompositor::LogText() const {
  std::ostringstream text;
  text << std::ifstream(Folder + "/log").rdbuf();
  return text.str();
}

}  // namespace marlex::stage
