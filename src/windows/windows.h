#pragma once

#include "windows/frm_chime_select.h"
#include "windows/frm_dir_sel.h"
#include "windows/frm_lang_sel.h"
#include "windows/frm_logo.h"
#include "windows/frm_main.h"
#include "windows/frm_mxr.h"
#include "windows/frm_players.h"
#include "windows/frm_playlist.h"
#include "windows/frm_settings.h"
#include "windows/wav_window.h"

namespace marlex {

/// The windows that the operator can see. A view shows each one while it is visible.
struct Windows {
  Windows(EventLoop& loop, const Directories& files)
      : frmLogo(loop),
        frmMain(loop),
        frmDirSel(files),
        frmChimeSelect(files),
        TheWavWindow(loop, files),
        frmPlaylist(files) {}

  FrmLogo frmLogo;
  FrmLangSel frmlangSel;
  FrmMain frmMain;
  FrmAbout frmAbout;
  FrmSettings frmSettings;
  FrmDirSel frmDirSel;
  FrmChimeSelect frmChimeSelect;
  WavWindow TheWavWindow;
  FrmPlaylist frmPlaylist;
};

}  // namespace marlex
