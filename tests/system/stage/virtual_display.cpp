#include "virtual_display.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <stdexcept>

namespace marlex::stage {
namespace {

constexpr int kStartLimitMs = 30'000;

/// Once ready, the server writes the number of its display and a line end; where the number is
/// taken, it ends. Reads to the end of the line, since the server ends if it cannot write it.
bool IsReady(int descriptor) {
  char letter = 0;
  pollfd wait{descriptor, POLLIN, 0};
  while (letter != '\n') {
    if (poll(&wait, 1, kStartLimitMs) <= 0 || read(descriptor, &letter, 1) != 1) return false;
  }
  return true;
}

}  // namespace

VirtualDisplay::VirtualDisplay(const std::string& folder, int width)
    : LogFile(folder + "/display.log") {
  // The server's own search sees only the displays of its network namespace, and takes the socket
  // file of one in another namespace away.
  constexpr int kFirst = 100, kNumbers = 50'000, kAttempts = 10;
  for (int attempt = 0; attempt < kAttempts && Name.empty(); ++attempt) {
    Start(kFirst + (getpid() + attempt) % kNumbers, width);
  }
  if (Name.empty()) throw std::runtime_error("The virtual display did not start: " + LogFile);
}

void VirtualDisplay::Start(int number, int width) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("The system has no pipe left.");
  const std::string display = ":" + std::to_string(number);
  Command command;
  // Without -noreset it would start over, and might end, whenever the program has ended.
  command.Arguments = {"Xvfb",       display,
                       "-noreset",   "-nolisten",
                       "tcp",        "-screen",
                       "0",          std::to_string(width) + "x" + std::to_string(kHeight) + "x24",
                       "-displayfd", std::to_string(ends[1])};
  command.LogFile = LogFile;
  command.Kept = ends[1];
  command.GoesFirst = true;
  command.DeathSignal = SIGTERM;  // lets it remove its lock file
  Server = std::make_unique<ChildProcess>(command);
  close(ends[1]);
  if (IsReady(ends[0])) Name = display;
  close(ends[0]);
}

void VirtualDisplay::Click(int x, int y) {
  Tool({"mousemove", std::to_string(x), std::to_string(y), "click", "1"});
}

void VirtualDisplay::DoubleClick(int x, int y) {
  Tool({"mousemove", std::to_string(x), std::to_string(y), "click", "--repeat", "2", "--delay",
        "60", "1"});
}

void VirtualDisplay::Move(int x, int y) {
  Tool({"mousemove", std::to_string(x), std::to_string(y)});
}

void VirtualDisplay::Press(int x, int y) {
  Tool({"mousemove", std::to_string(x), std::to_string(y), "mousedown", "1"});
}

void VirtualDisplay::Release() { Tool({"mouseup", "1"}); }

bool VirtualDisplay::CloseWindow(const std::string& title) {
  return stage::CloseWindow(Name, title);
}

void VirtualDisplay::Place(const std::string& title, int x, int y) {
  Tool({"search", "--onlyvisible", "--name", "^" + title + "$", "windowmove", std::to_string(x),
        std::to_string(y)});
}

void VirtualDisplay::Resize(const std::string& title, int width, int height) {
  Tool({"search", "--onlyvisible", "--name", "^" + title + "$", "windowsize", std::to_string(width),
        std::to_string(height)});
}

void VirtualDisplay::Key(const std::string& name) { Tool({"key", name}); }

void VirtualDisplay::Kill() {
  Server->Signal(SIGKILL);
  Server.reset();
  // It leaves its lock file and its socket.
  const std::string number = Name.substr(1);
  unlink(("/tmp/.X" + number + "-lock").c_str());
  unlink(("/tmp/.X11-unix/X" + number).c_str());
}

bool VirtualDisplay::Picture(const std::string& file, const ScreenArea& area) {
  Command command;
  std::string crop = std::to_string(area.Width) + "x" + std::to_string(area.Height) + "+" +
                     std::to_string(area.X) + "+" + std::to_string(area.Y);
  command.Arguments = {"import", "-window", "root", "-crop", crop, "+repage", file};
  command.Variables = {{"DISPLAY", Name}};
  command.LogFile = LogFile;
  return Run(command) == 0;
}

std::string VirtualDisplay::ColourAt(int x, int y) const {
  Command command;
  const std::string pixel = "1x1+" + std::to_string(x) + "+" + std::to_string(y);
  command.Arguments = {"import", "-window", "root", "-crop", pixel, "-depth", "8", "rgb:-"};
  command.Variables = {{"DISPLAY", Name}};
  command.LogFile = LogFile;
  std::string colour = "#";
  for (const unsigned char part : OutputOf(command)) {
    constexpr const char* kDigits = "0123456789abcdef";
    colour += {kDigits[part / 16], kDigits[part % 16]};
  }
  return colour;
}

int VirtualDisplay::Tool(std::vector<std::string> arguments) {
  Command command;
  command.Arguments = {"xdotool"};
  command.Arguments.insert(command.Arguments.end(), arguments.begin(), arguments.end());
  command.Variables = {{"DISPLAY", Name}};
  command.LogFile = LogFile;
  return Run(command);
}

}  // namespace marlex::stage
