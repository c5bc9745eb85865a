#pragma once

#include "controls/file_lists.h"
#include "controls/form.h"
#include "controls/widgets.h"

namespace marlex {

/// The directory picker. Its texts are always English.
struct FrmDirSel : Form {
  explicit FrmDirSel(const Directories& files)
      : Form("frmDirSel", "Directory selection"),
        Drive1(*this, "Drive1", files),
        Dir1(*this, "Dir1", files),
        lstFiles(*this, "lstFiles", files) {
    cmdOK.Caption = "OK";
  }

  DriveListBox Drive1;
  DirListBox Dir1;
  FileListBox lstFiles;  // shows the operator what the directory contains
  CommandButton cmdOK{*this, "cmdOK"};
};

}  // namespace marlex
