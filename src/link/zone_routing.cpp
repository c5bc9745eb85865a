#include "link/zone_routing.h"

namespace marlex {
namespace {

constexpr const char* kNoZones = "000000";

Zones ZonesOf(ControlArray<ToggleButton>& buttons) {
  Zones zones{};
  for (int zone = 0; zone < kZones; ++zone)
    zones[static_cast<std::size_t>(zone)] = buttons[zone].Value;
  return zones;
}

}  // namespace

ZoneRouting::ZoneRouting(FrmMain& frmMain, FrmPlayers& frmPlayers, SettingsStore& store)
    : TheFrmMain(frmMain), TheFrmPlayers(frmPlayers), Store(store) {
  for (int zone = 0; zone < kZones; ++zone) {
    frmMain.cmdMusicZones[zone].OnChange = [this, zone] { MusicZoneChanged(zone); };
    frmMain.cmdCallZone[zone].OnChange = [this] { CallZoneChanged(); };
  }
}

void ZoneRouting::ApplyMusicRouting() {
  RoutingRestoreGuard = true;
  const Zones zones = ZonesOfRouting(Store.Values.MusicRouting);
  for (int zone = 0; zone < kZones; ++zone) {
    const bool on = zones[static_cast<std::size_t>(zone)];
    TheFrmMain.cmdMusicZones[zone].Value = on;
    Paint(zone, on);
  }
  RoutingRestoreGuard = false;
  SaveMusicRouting();
}

void ZoneRouting::ApplyCallRouting() {
  const std::string routing = Store.Values.CallRouting;
  const Zones zones = ZonesOfRouting(routing);
  for (int zone = 0; zone < kZones; ++zone)
    TheFrmMain.cmdCallZone[zone].Value = zones[static_cast<std::size_t>(zone)];
  if (routing.empty() || routing == kNoZones) TheFrmMain.cmdCall.Enabled = false;
}

void ZoneRouting::SaveMusicRouting() {
  Store.Values.MusicRouting = RoutingOf(ZonesOf(TheFrmMain.cmdMusicZones));
  Store.Write(keys::kMusicRouting, Store.Values.MusicRouting);
}

void ZoneRouting::SaveCallRouting() {
  Store.Values.CallRouting = RoutingOf(ZonesOf(TheFrmMain.cmdCallZone));
  Store.Write(keys::kCallRouting, Store.Values.CallRouting);
  // Deliberate: enables the call button even if something else had disabled it.
  TheFrmMain.cmdCall.Enabled = Store.Values.CallRouting != kNoZones;
}

void ZoneRouting::ShowCallZones() { Show(ZonesOfRouting(Store.Values.CallRouting)); }

void ZoneRouting::ShowMessageZones(const std::string& zoneText) { Show(ZonesOfRow(zoneText)); }

void ZoneRouting::RequestRouting() {
  if (Store.Values.RouterPresent) TheFrmPlayers.tmrIODelay.Enabled = true;
}

void ZoneRouting::Release() { TheFrmPlayers.TolvoPort.Output({&kReleaseByte, 1}); }

Zones ZoneRouting::ShownZones() const {
  Zones zones{};
  for (int zone = 0; zone < kZones; ++zone)
    zones[static_cast<std::size_t>(zone)] = TheFrmMain.lblCurrentZone[zone].BackColor == kGreen;
  return zones;
}

void ZoneRouting::Show(const Zones& zones) {
  for (int zone = 0; zone < kZones; ++zone) Paint(zone, zones[static_cast<std::size_t>(zone)]);
  RequestRouting();
}

void ZoneRouting::Paint(int zone, bool fed) {
  TheFrmMain.lblCurrentZone[zone].BackColor = fed ? kGreen : kButtonFace;
}

/// Deliberate: the label follows the button at once, even while the labels show the zones of a call
/// or a message, so the next routing byte includes the change.
void ZoneRouting::MusicZoneChanged(int zone) {
  Paint(zone, TheFrmMain.cmdMusicZones[zone].Value);
  if (TheFrmPlayers.MP3Player.PlayState() == kPlaying) RequestRouting();
  if (!RoutingRestoreGuard) SaveMusicRouting();
}

/// While the window loads, its buttons are set from the file, and nothing is saved.
void ZoneRouting::CallZoneChanged() {
  if (TheFrmMain.Visible) SaveCallRouting();
}

}  // namespace marlex
