#pragma once

#include <QLabel>
#include <QTableView>
#include <vector>

#include "core/glance.h"
#include "windows/frm_main.h"

namespace marlex {

/// Whether a lamp is lit, in any colour.
bool IsLit(const QWidget& lamp);

/// Paints the lamps of the main window: those of the zones with their names, the call lamp, the
/// note about a call of the amplifier, and the row that plays. In the system's colours a zone is
/// green whenever it is fed, a row while its message plays, and the call lamp flashes in green
/// during a chime. On the screen full green means that speech or a message is on the air now: a
/// zone that is fed with anything else is pale, and so is the row of a message that a takeover has
/// muted. The call lamp flashes in grey, and is dark while the amplifier holds the call back.
class Lamps {
 public:
  /// `window` must contain the widgets of the lamps. Construct the lamps before the bindings, which
  /// leave their colours alone from then on.
  Lamps(FrmMain& form, QWidget& window);

  void Paint(const Glance& glance);

 private:
  struct Lamp {
    const Label& Source;
    QLabel& Widget;
  };

  std::vector<Lamp> Zones;
  std::vector<QLabel*> ZoneNames;
  std::vector<Lamp> Calls;
  QLabel& AmplifierNote;
  QTableView& Schedule;
};

}  // namespace marlex
