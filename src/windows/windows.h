#pragma once

#include "windows/frm_lang_sel.h"
#include "windows/frm_logo.h"
#include "windows/frm_main.h"
#include "windows/frm_mxr.h"
#include "windows/frm_players.h"

namespace marlex {

/// The windows that an operator can see. A view shows each while it is visible.
struct Windows {
  explicit Windows(EventLoop& loop) : frmLogo(loop), frmMain(loop) {}

  FrmLogo frmLogo;
  FrmLangSel frmlangSel;
  FrmMain frmMain;
  FrmAbout frmAbout;
};

}  // namespace marlex
