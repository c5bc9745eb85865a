#pragma once

#include "controls/file_lists.h"
#include "controls/form.h"
#include "controls/widgets.h"

namespace marlex {

/// The chime picker.
struct FrmChimeSelect : Form {
  explicit FrmChimeSelect(const Directories& files)
      : Form("frmChimeSelect", "Chime selection"), lstChimeList(*this, "lstChimeList", files) {
    cmdOK.Caption = "OK";
    cmdCancel.Caption = "Cancel";
    cmdCancel.Tag = "770";
  }

  FileListBox lstChimeList;
  CommandButton cmdOK{*this, "cmdOK"};
  CommandButton cmdCancel{*this, "cmdCancel"};
};

}  // namespace marlex
