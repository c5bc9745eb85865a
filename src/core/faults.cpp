#include "core/faults.h"

#include <algorithm>
#include <utility>

#include "text/paths.h"

namespace marlex {
namespace {

constexpr int kLookMs = 1000;
constexpr int kLooksPerMediaLook = 3;  // drives have other work

bool Has(const std::vector<Fault>& faults, const Fault& fault) {
  return std::ranges::find(faults, fault) != faults.end();
}

StringId TextIdOf(FaultKind kind) {
  switch (kind) {
    case FaultKind::NoSound:
      return kStrNoSoundDevice;
    case FaultKind::PretendedSound:
      return kStrPretendedSoundDevice;
    case FaultKind::NoMicrophone:
      return kStrMicrophoneGone;
    case FaultKind::NoSerialLine:
      return kStrPortNotOpened;
    case FaultKind::NotWritten:
      return kStrFileNotSaved;
    case FaultKind::ClockJumped:
      return kStrClockJumped;
    case FaultKind::MediumMissing:
      return kStrMediumMissing;
    case FaultKind::MediumUnplayable:
      return kStrMediumUnplayable;
    case FaultKind::ScheduleStopped:
      break;
  }
  return kStrScheduleStopped;
}

std::string TextOf(const Fault& fault, std::string kind) {
  if (fault.Detail.empty()) return kind;
  if (!kind.ends_with(' ')) kind += ' ';
  return kind + fault.Detail;
}

std::string EnglishTextOf(const Fault& fault) {
  return TextOf(fault, StringTable::LoadEnglish(TextIdOf(fault.Kind)));
}

}  // namespace

Faults::Faults(EventLoop& loop, SoundHealth& sound, const SerialPort& port,
               const SettingsStore& store, const ScheduleTick& tick, ClockWatch clock,
               PlanMedia media, Record& record, const StringTable& strings)
    : Loop(loop),
      Sound(sound),
      Port(port),
      Store(store),
      Tick(tick),
      Clock(std::move(clock)),
      Media(media),
      TheRecord(record),
      Strings(strings),
      Timer(loop.StartTimer(kLookMs, [this] { Look(); })) {}

Faults::~Faults() { Loop.StopTimer(Timer); }

std::vector<std::string> Faults::Texts() const {
  std::vector<std::string> texts;
  std::ranges::transform(Known, std::back_inserter(texts), [this](const Fault& fault) {
    return TextOf(fault, Strings.LoadString(TextIdOf(fault.Kind)));
  });
  return texts;
}

void Faults::Look() {
  Clock.Look();
  if (LooksUntilMedia-- == 0) {
    LooksUntilMedia = kLooksPerMediaLook - 1;
    BadMedia = Media.Look();
  }
  const std::vector<Fault> present = Present();
  std::erase_if(Known, [&](const Fault& fault) {
    const bool isMended = !Has(present, fault);
    if (isMended) TheRecord.FaultGoes(EnglishTextOf(fault));
    return isMended;
  });
  std::vector<Fault> newest;
  for (const Fault& fault : present) {
    if (Has(Known, fault)) continue;
    newest.push_back(fault);
    TheRecord.FaultComes(EnglishTextOf(fault));
  }
  Known.insert(Known.begin(), newest.begin(), newest.end());
}

/// Of faults that come together, those that silence more come first.
std::vector<Fault> Faults::Present() const {
  std::vector<Fault> present;
  AddSound(present);
  if (Port.PortOpen() && !Port.Connected())
    present.push_back({FaultKind::NoSerialLine, "COM" + std::to_string(Port.CommPort())});
  if (Tick.HasStopped()) present.push_back({FaultKind::ScheduleStopped, ""});
  for (const BadMedium& medium : BadMedia) {
    present.push_back({medium.IsMissing ? FaultKind::MediumMissing : FaultKind::MediumUnplayable,
                       medium.FileName});
  }
  if (!Clock.Jump().empty()) present.push_back({FaultKind::ClockJumped, Clock.Jump()});
  for (const std::string& file : Store.NotWritten())
    present.push_back({FaultKind::NotWritten, FileNameOf(file)});
  return present;
}

void Faults::AddSound(std::vector<Fault>& present) const {
  const SoundOutlet outlet = Sound.Outlet();
  if (outlet == SoundOutlet::Gone) present.push_back({FaultKind::NoSound, ""});
  if (outlet == SoundOutlet::Pretended) present.push_back({FaultKind::PretendedSound, ""});
  if (Sound.MicrophoneIsGone()) present.push_back({FaultKind::NoMicrophone, ""});
}

}  // namespace marlex
