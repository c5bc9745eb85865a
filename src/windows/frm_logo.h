#pragma once

#include "controls/form.h"
#include "controls/timer.h"
#include "controls/widgets.h"

namespace marlex {

/// Texts shared by the splash and the about window: what the product is, and a notice.
struct ProductLines {
  explicit ProductLines(Form& form)
      : Label1(form, "Label1"),
        Label5(form, "Label5"),
        Label6(form, "Label6"),
        Label7(form, "Label7"),
        Label3(form, "Label3"),
        Label4(form, "Label4"),
        lblNotice(form, "lblNotice") {
    const auto text = [](Label& label, const char* caption, const char* tag) {
      label.Caption = caption;
      label.Tag = tag;
    };
    text(Label1, "Tolvo Marlex", "");
    text(Label5, "Background music player", "10");
    text(Label6, "PC call station", "20");
    text(Label7, "Time scheduled spot announcer", "30");
    text(Label3, "This program shall be used only in combination with Hadrik Tolvo amplifiers.",
         "70");
    text(Label4, "Release 3.1", "90");
    text(lblNotice,
         "Announcements are only as safe as the installation behind them: test yours regularly.",
         "1490");
  }

  Label Label1;
  Label Label5;
  Label Label6;
  Label Label7;
  Label Label3;
  Label Label4;
  Label lblNotice;
};

/// The splash, the first window of the process. Its caption must differ from that of the main
/// window, by which a running instance is recognised.
struct FrmLogo : Form {
  explicit FrmLogo(EventLoop& loop)
      : Form("frmLogo", "Tolvo Marlex starts"), tmrView(*this, "tmrView", loop, 2500, false) {}

  ProductLines Lines{*this};
  Timer tmrView;  // ends the splash
};

struct FrmAbout : Form {
  FrmAbout() : Form("frmAbout", "About Tolvo Marlex") { cmdOK.Caption = "OK"; }

  ProductLines Lines{*this};
  CommandButton cmdOK{*this, "cmdOK"};
};

}  // namespace marlex
