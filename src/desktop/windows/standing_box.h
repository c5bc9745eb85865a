#pragma once

#include <QDialog>
#include <QMessageBox>
#include <string>

#include "desktop/windows/pointers_down.h"

namespace marlex {

/// The main window: nothing bars its call key or refuses its close, so no box may block it.
bool StaysFree(const QWidget& window);

/// A message box in plain text, without keys.
QMessageBox* MakeBox(QMessageBox::Icon icon, const std::string& caption, const std::string& body,
                     QWidget* parent);

/// Opens a box and waits for nothing; it is deleted when it closes. It blocks the editor or dialog
/// that it belongs to, but neither the main window nor a dialog of that one, since who blocks a
/// dialog blocks its owner too. It takes the keyboard from the window in front, and with it the
/// call of an operator who speaks: so it comes up once no key of the mouse and no finger is down.
void LeaveStanding(QDialog* box, const PointersDown& pointers);

}  // namespace marlex
