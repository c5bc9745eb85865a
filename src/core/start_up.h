#pragma once

#include <string>

#include "core/settings_loader.h"
#include "i18n/languages.h"
#include "i18n/notices.h"
#include "i18n/string_table.h"
#include "platform/pc.h"
#include "state/settings_store.h"
#include "windows/windows.h"

namespace marlex {

/// From the start of the process to the main window: the language, the splash, the guard against a
/// second instance, the settings.
class StartUp {
 public:
  StartUp(Pc& pc, SettingsStore& store, Windows& windows, StringTable& strings,
          SettingsLoader& loader, Notices& notices);

  /// Shows the splash, or the language dialog when no language is set.
  void Start() { TheFrmLogo.Show(); }

  /// Reports to the operator that the settings file cannot be written.
  void ReportNotSaved();

 private:
  void LoadLogo();
  void UseLanguage(const Language& language);
  void EndSecondInstance();
  void EndSplash();  // tmrView
  void LoadLanguageDialog();
  void ChooseLanguage();  // cmdOK of the language dialog

  Pc& ThePc;
  SettingsStore& Store;
  FrmLogo& TheFrmLogo;
  FrmLangSel& TheFrmLangSel;
  StringTable& Strings;
  SettingsLoader& Loader;
  Notices& TheNotices;
};

/// Name of the operating system, from the published version numbers; "Failed" for an unknown
/// family, empty for an unknown version of a known one.
std::string OperatingSystemName(const SystemVersion& version);

/// The language with exactly this name; English if there is none.
Language LanguageOf(const std::string& name);

}  // namespace marlex
