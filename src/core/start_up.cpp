#include "core/start_up.h"

#include "i18n/translate_controls.h"

namespace marlex {
namespace {

static_assert(kLanguageTable.size() == FrmLangSel::kLanguages,
              "each language has its option in the language dialog");

/// Deliberate: no language has a text with this id, so the box of a second instance is empty.
constexpr int kEmptyText = 6;

std::string NameOfFirstFamily(int minorVersion) {
  if (minorVersion == 0) return "Windows 95";
  if (minorVersion == 10) return "Windows 98";
  if (minorVersion == 90) return "Windows Me";
  return "";
}

std::string NameOfSecondFamily(int majorVersion) {
  if (majorVersion == 3) return "Windows NT 3.51";
  if (majorVersion == 4) return "Windows NT 4.0";
  if (majorVersion == 5) return "Windows 2000";
  return "";
}

}  // namespace

std::string OperatingSystemName(const SystemVersion& version) {
  if (version.PlatformId == 1) return NameOfFirstFamily(version.MinorVersion);
  if (version.PlatformId == 2) return NameOfSecondFamily(version.MajorVersion);
  return "Failed";
}

Language LanguageOf(const std::string& name) {
  for (const Language& language : kLanguageTable) {
    if (name == language.Name) return language;
  }
  return kLanguageTable[0];
}

StartUp::StartUp(Pc& pc, SettingsStore& store, Windows& windows, StringTable& strings,
                 SettingsLoader& loader, Notices& notices)
    : ThePc(pc),
      Store(store),
      TheFrmLogo(windows.frmLogo),
      TheFrmLangSel(windows.frmlangSel),
      Strings(strings),
      Loader(loader),
      TheNotices(notices) {
  TheFrmLogo.OnLoad = [this] { LoadLogo(); };
  TheFrmLogo.OnClose = [] {};  // the splash ends by itself
  TheFrmLogo.tmrView.OnTimer = [this] { EndSplash(); };
  TheFrmLangSel.OnLoad = [this] { LoadLanguageDialog(); };
  TheFrmLangSel.OnClose = [this] { ThePc.TheProcess.End(); };
  TheFrmLangSel.cmdOK.OnClick = [this] { ChooseLanguage(); };
}

void StartUp::LoadLogo() {
  const std::string language = Store.Read(keys::kLanguage);
  if (language.empty()) {
    TheFrmLangSel.Show();
    TheFrmLogo.Unload();
    return;
  }
  UseLanguage(LanguageOf(language));
  TranslateControls(TheFrmLogo, Strings);
  TheFrmLogo.Caption = Strings.LoadString(kStrStarts);
  Store.Values.OperatingSystemText = OperatingSystemName(ThePc.TheProcess.GetVersion());
  TheFrmLogo.tmrView.Enabled = true;
  if (ThePc.TheProcess.FindWindow(FrmMain::kCaption)) EndSecondInstance();
}

void StartUp::UseLanguage(const Language& language) {
  Strings.LanguageBase = language.LanguageBase;
  Store.ValuesIn = language.OldPage;
  ThePc.Files.NamesIn = language.OldPage;
  ThePc.Boxes.FileTexts = {.Caption = Strings.LoadString(kStrWarning),
                           .NotFound = Strings.LoadString(kStrFileNotFound),
                           .Exists = Strings.LoadString(kStrFileExists),
                           .Replace = Strings.LoadString(kStrReplace),
                           .Cancel = Strings.LoadString(kStrCancel),
                           .Ok = Strings.LoadString(kStrOk),
                           .Folder = Strings.LoadString(kStrFolder),
                           .FileName = Strings.LoadString(kStrFileName),
                           .FileType = Strings.LoadString(kStrFileType),
                           .Open = Strings.LoadString(kStrOpen),
                           .Save = Strings.LoadString(kStrSave),
                           .Back = Strings.LoadString(kStrBack),
                           .Forward = Strings.LoadString(kStrForward),
                           .ParentFolder = Strings.LoadString(kStrParentFolder)};
}

void StartUp::EndSecondInstance() {
  TheFrmLogo.tmrView.Enabled = false;  // the start must not continue while the box is open
  ThePc.Boxes.MsgBox(Strings.Find(kEmptyText).value_or(""), BoxIcon::Information,
                     Strings.LoadString(kStrWarning));
  ThePc.TheProcess.End();
}

void StartUp::EndSplash() {
  TheFrmLogo.tmrView.Enabled = false;
  // Of two instances started at once, only one can claim the window; the other must not touch the
  // sound card.
  if (!ThePc.TheProcess.ClaimWindow(FrmMain::kCaption)) EndSecondInstance();
  Loader.LoadSettings();
  TheFrmLogo.Unload();
}

void StartUp::LoadLanguageDialog() {
  for (int index = 0; index < FrmLangSel::kLanguages; ++index) {
    TheFrmLangSel.optLanguage[index].Caption = kLanguageTable[static_cast<std::size_t>(index)].Name;
  }
  TheFrmLangSel.optLanguage[0].SetValue(true);
}

void StartUp::ChooseLanguage() {
  for (int index = 0; index < FrmLangSel::kLanguages; ++index) {
    if (!TheFrmLangSel.optLanguage[index].Value()) continue;
    const Language& language = kLanguageTable[static_cast<std::size_t>(index)];
    UseLanguage(language);
    // A failed write is reported each time: the splash reads the language from the file, so this
    // dialog comes back.
    if (!Store.WriteProfileValue(keys::kLanguage, language.Name, Store.TolvoIni()))
      ReportNotSaved();
  }
  TheFrmLangSel.Unload();
  TheFrmLogo.Show();
}

void StartUp::ReportNotSaved() {
  TheNotices.Error(Strings.LoadString(kStrSettingsNotSaved) + Store.TolvoIni());
}

}  // namespace marlex
