#pragma once

#include <string>

#include "desktop/windows/box_hand.h"
#include "desktop/windows/painted_windows.h"

namespace marlex {

/// The main window with a call button that records what it receives, and boxes over it.
struct CallPlace : PaintedWindows {
  CallPlace() {
    Forms.frmMain.cmdCall.OnMouseDown = [this](MouseButton) { Heard += "down "; };
    Forms.frmMain.cmdCall.OnMouseUp = [this](MouseButton) { Heard += "up "; };
    Forms.frmMain.frRouting.Visible = true;
    Forms.frmMain.frCall.Visible = false;
    ShowMain();
  }
  ~CallPlace() {
    for (QDialog* dialog : OpenDialogs<QDialog>()) dialog->close();
  }

  QPoint ButtonPlace() {
    auto& button = Find<QPushButton>("cmdCall");
    return button.mapTo(&Screen.Main(), button.rect().center());
  }
  void Press() {
    QTest::mousePress(Screen.Main().windowHandle(), Qt::LeftButton, {}, ButtonPlace());
    Settle();
  }
  void Release() {
    QTest::mouseRelease(Screen.Main().windowHandle(), Qt::LeftButton, {}, ButtonPlace());
    Settle();
  }

  QtEventLoop BoxLoop;
  EnglishBoxes Boxes{BoxLoop};
  std::string Heard;
};

}  // namespace marlex
