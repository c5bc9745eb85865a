#include "link/zone_routing.h"

namespace marlex {
namespace {

constexpr const char* kNoZones = "000000";

bool RoutingHas(const std::string& routing, int zone) {
  const auto place = static_cast<std::size_t>(zone);
  return place < routing.size() && routing[place] == '1';
}

bool ZoneTextHas(const std::string& zoneText, int zone) {
  const auto place = static_cast<std::size_t>(zone);
  return place < zoneText.size() && zoneText[place] == static_cast<char>('1' + zone);
}

std::string RoutingOf(ControlArray<ToggleButton>& keys) {
  std::string routing;
  for (int zone = 0; zone < kZones; ++zone) routing += keys[zone].Value ? '1' : '0';
  return routing;
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
  const std::string routing = Store.Values.MusicRouting;
  for (int zone = 0; zone < kZones; ++zone) {
    TheFrmMain.cmdMusicZones[zone].Value = RoutingHas(routing, zone);
    Paint(zone, RoutingHas(routing, zone));
  }
  RoutingRestoreGuard = false;
  SaveMusicRouting();
}

void ZoneRouting::ApplyCallRouting() {
  const std::string routing = Store.Values.CallRouting;
  for (int zone = 0; zone < kZones; ++zone) {
    TheFrmMain.cmdCallZone[zone].Value = RoutingHas(routing, zone);
  }
  if (routing.empty() || routing == kNoZones) TheFrmMain.cmdCall.Enabled = false;
}

void ZoneRouting::SaveMusicRouting() {
  Store.Values.MusicRouting = RoutingOf(TheFrmMain.cmdMusicZones);
  Store.Write("Routing", "Music routing", Store.Values.MusicRouting);
}

void ZoneRouting::SaveCallRouting() {
  Store.Values.CallRouting = RoutingOf(TheFrmMain.cmdCallZone);
  Store.Write("Routing", "Call routing", Store.Values.CallRouting);
  // Whatever else had switched the call key off is ignored here, which is meant.
  TheFrmMain.cmdCall.Enabled = Store.Values.CallRouting != kNoZones;
}

void ZoneRouting::ShowCallZones() {
  for (int zone = 0; zone < kZones; ++zone) Paint(zone, RoutingHas(Store.Values.CallRouting, zone));
  RequestRouting();
}

void ZoneRouting::ShowMessageZones(const std::string& zoneText) {
  for (int zone = 0; zone < kZones; ++zone) Paint(zone, ZoneTextHas(zoneText, zone));
  RequestRouting();
}

void ZoneRouting::RequestRouting() {
  if (Store.Values.RouterPresent) TheFrmPlayers.tmrIODelay.Enabled = true;
}

void ZoneRouting::Paint(int zone, bool fed) {
  TheFrmMain.lblCurrentZone[zone].BackColor = fed ? kGreen : kButtonFace;
}

/// The label follows the key at once, also over the pattern of a call or message that is on; the
/// next byte carries it. This is meant.
void ZoneRouting::MusicZoneChanged(int zone) {
  Paint(zone, TheFrmMain.cmdMusicZones[zone].Value);
  if (TheFrmPlayers.MP3Player.PlayState() == kPlaying) RequestRouting();
  if (!RoutingRestoreGuard) SaveMusicRouting();
}

/// While the window loads, its keys are being set from the file and write nothing.
void ZoneRouting::CallZoneChanged() {
  if (TheFrmMain.Visible) SaveCallRouting();
}

}  // namespace marlex
