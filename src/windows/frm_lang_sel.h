#pragma once

#include "controls/form.h"
#include "controls/widgets.h"

namespace marlex {

/// The language dialog. Its texts are always English, since no language has been chosen yet.
struct FrmLangSel : Form {
  static constexpr int kLanguages = 14;

  FrmLangSel() : Form("frmlangSel", "Select your language") { cmdOK.Caption = "OK"; }

  ControlArray<OptionButton> optLanguage{*this, "optLanguage", 0, kLanguages - 1};
  CommandButton cmdOK{*this, "cmdOK"};
};

}  // namespace marlex
