#include "desktop/windows/lamps.h"

#include <QStyle>

#include "controls/color.h"
#include "desktop/windows/binding.h"
#include "desktop/windows/grid_binding.h"
#include "desktop/windows/part.h"

namespace marlex {

namespace {

// The style sheet's names for how a lamp is lit.
constexpr const char* kDark = "no";
constexpr const char* kFed = "fed";
constexpr const char* kLive = "live";
constexpr const char* kWaiting = "wait";
constexpr const char* kHeld = "held";

void Light(QLabel& lamp, const char* how) {
  if (lamp.property(kLampProperty) == how) return;
  lamp.setProperty(kLampProperty, how);
  lamp.style()->unpolish(&lamp);
  lamp.style()->polish(&lamp);
  lamp.update();
}

QLabel& LampOf(QWidget& window, const Label& control) {
  auto& lamp = Part<QLabel>(window, control.ObjectName());
  lamp.setProperty(kLampProperty, kDark);
  return lamp;
}

void LightPlayingRow(QTableView& schedule, bool isOnAir) {
  if (schedule.property(kSpeechIsOnProperty) == isOnAir) return;
  schedule.setProperty(kSpeechIsOnProperty, isOnAir);
  schedule.viewport()->update();
}

}  // namespace

bool IsLit(const QWidget& lamp) {
  const QVariant how = lamp.property(kLampProperty);
  return how.isValid() && how != kDark;
}

Lamps::Lamps(FrmMain& form, QWidget& window)
    : AmplifierNote(LampOf(window, form.lblHiPrio)),
      Schedule(Part<QTableView>(window, form.grdSchedule.ObjectName())) {
  for (const auto& zone : form.lblCurrentZone) Zones.push_back({*zone, LampOf(window, *zone)});
  for (const auto& name : form.lblZoneName) ZoneNames.push_back(&LampOf(window, *name));
  for (const auto& call : form.lblBusy) Calls.push_back({*call, LampOf(window, *call)});
}

void Lamps::Paint(const Glance& glance) {
  const char* fed = glance.SpeechIsOn ? kLive : kFed;
  for (std::size_t zone = 0; zone < Zones.size(); ++zone) {
    const char* how = Zones[zone].Source.BackColor == kGreen ? fed : kDark;
    Light(Zones[zone].Widget, how);
    Light(*ZoneNames[zone], how);
  }
  const char* calling = glance.IsHeldBack ? kDark : kWaiting;
  if (glance.What == OnAir::Call) calling = kLive;
  for (const Lamp& call : Calls)
    Light(call.Widget, call.Source.BackColor == kButtonFace ? kDark : calling);
  Light(AmplifierNote, glance.IsHeldBack ? kHeld : kDark);
  LightPlayingRow(Schedule, glance.SpeechIsOn);
}

}  // namespace marlex
