#include "sound_server.h"

#include <unistd.h>

#include <fstream>
#include <stdexcept>

#include "wait.h"

namespace marlex::stage {

SoundServer::SoundServer(const std::string& folder, const SoundCards& cards) : Folder(folder) {
  WriteAlsaConfiguration();
  Start(cards);
}

Environment SoundServer::Variables() const {
  return {{"PULSE_SERVER", "unix:" + Folder + "/native"},
          {"PULSE_COOKIE", Folder + "/cookie"},
          {"PULSE_RUNTIME_PATH", Folder},
          {"PULSE_STATE_PATH", Folder},
          {"XDG_RUNTIME_DIR", Folder},
          {"ALSA_CONFIG_PATH", Folder + "/asound.conf"},
          {"PIPEWIRE_REMOTE", Folder + "/none"},
          {"DBUS_SESSION_BUS_ADDRESS", "disabled:"}};
}

void SoundServer::Kill() {
  if (!Server) return;
  Server->Signal(SIGKILL);
  Server.reset();
}

void SoundServer::Start(const SoundCards& cards) {
  constexpr double kStartLimitSeconds = 20;
  Kill();
  unlink((Folder + "/native").c_str());
  WriteScript(cards);
  Command command;
  command.Arguments = {"pulseaudio",
                       "-n",
                       "--daemonize=no",
                       "--use-pid-file=no",
                       "--exit-idle-time=-1",
                       "--high-priority=yes",
                       "--realtime=yes",
                       "--log-level=notice",
                       "-F",
                       Folder + "/server.pa"};
  command.Variables = Variables();
  command.Variables["HOME"] = Folder;
  command.Variables.erase("PULSE_SERVER");
  command.LogFile = Folder + "/sound.log";
  Server = std::make_unique<ChildProcess>(command);
  bool isUp = WaitUntil([this] { return !Server->IsRunning() || IsUp(); }, kStartLimitSeconds);
  if (!isUp || !Server->IsRunning()) {
    throw std::runtime_error("The sound server did not start: " + Folder + "/sound.log");
  }
}

std::unique_ptr<ChildProcess> SoundServer::Record(const std::string& output, int descriptor) const {
  Command command;
  command.Arguments = {"parec",
                       "--raw",
                       "--device=" + output + ".monitor",
                       "--format=s16le",
                       "--rate=" + std::to_string(kSampleRate),
                       "--channels=" + std::to_string(kChannels),
                       "--latency-msec=10"};
  command.Variables = Variables();
  command.LogFile = Folder + "/record.log";
  command.GoesFirst = true;
  command.Output = descriptor;
  auto recorder = std::make_unique<ChildProcess>(command);
  close(descriptor);
  return recorder;
}

std::unique_ptr<ChildProcess> SoundServer::Speak(const std::string& file) const {
  Command command;
  command.Arguments = {"paplay", "--device=mouth", "--latency-msec=50", file};
  command.Variables = Variables();
  command.LogFile = Folder + "/speak.log";
  command.GoesFirst = true;
  return std::make_unique<ChildProcess>(command);
}

/// The door is made last, so that whoever can connect finds all cards.
void SoundServer::WriteScript(const SoundCards& cards) const {
  std::ofstream script(Folder + "/server.pa");
  for (const std::string& output : cards.Outputs) {
    script << "load-module module-null-sink sink_name=" << output << " rate=" << kSampleRate
           << " channels=" << kChannels << " sink_properties=device.description=" << output << "\n";
  }
  if (cards.Microphone) {
    script << "load-module module-null-sink sink_name=mouth rate=" << kSampleRate << "\n"
           << "load-module module-remap-source source_name=microphone master=mouth.monitor\n";
  }
  script << "set-default-sink " << cards.Outputs.front() << "\n";
  if (cards.Microphone) script << "set-default-source microphone\n";
  script << "load-module module-native-protocol-unix auth-anonymous=1 socket=" << Folder
         << "/native\n";
}

void SoundServer::WriteAlsaConfiguration() const {
  std::ofstream file(Folder + "/asound.conf");
  file << "</usr/share/alsa/alsa.conf>\n"
          "pcm.!default { type pulse }\n"
          "ctl.!default { type pulse }\n";
}

bool SoundServer::IsUp() const { return access((Folder + "/native").c_str(), F_OK) == 0; }

}  // namespace marlex::stage
