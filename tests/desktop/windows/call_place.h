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

  QPoint KeyPlace() {
    auto& key = Find<QPushButton>("cmdCall");
    return key.mapTo(&Screen.Main(), key.rect().center());
  }
  void Press() {
    QTest::mousePress(Screen.Main().windowHandle(), Qt::LeftButton, {}, KeyPlace());
    Settle();
  }
  void Release() {
    QTest::mouseRelease(Screen.Main().windowHandle(), Qt::LeftButton, {}, KeyPlace());
    Settle();
  }

  QtEventLoop BoxLoop;
  EnglishBoxes Boxes{BoxLoop};
  std::string Heard;
};

}  // namespace marlex
