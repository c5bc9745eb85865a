#include <QApplication>

#include "app/desktop_pc.h"
#include "core/system.h"
#include "desktop/process/session_end.h"
#include "desktop/process/signs_of_life.h"
#include "desktop/windows/toolkit_words.h"
#include "desktop/windows/views.h"
#include "i18n/languages.h"

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  QGuiApplication::setDesktopFileName("marlex");  // its desktop entry, whatever the file is named
  marlex::DesktopPc pc;
  marlex::System system(pc.Ports());
  marlex::ToolkitWords words([&system] { return marlex::LocaleOf(system.Strings.LanguageBase); });
  marlex::Views views(system.TheWindows, pc.Loop, [&system] { return system.ThePasserby.Look(); });
  marlex::SessionEnd sessionEnd(pc.Loop, [&system] { system.TheMainWindow.mnuExit_Click(); });
  marlex::SignsOfLife signsOfLife(pc.Loop);
  pc.Loop.Post([&system] { system.Start(); });
  return application.exec();
}
