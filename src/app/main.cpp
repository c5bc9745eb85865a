#include <QApplication>

#include "app/desktop_pc.h"
#include "core/system.h"
#include "desktop/windows/views.h"

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  marlex::DesktopPc pc;
  marlex::System system(pc.Ports());
  marlex::Views views(system.TheWindows, pc.Loop, [&system] { return system.ThePasserby.Look(); });
  pc.Loop.Post([&system] { system.Start(); });
  return application.exec();
}
