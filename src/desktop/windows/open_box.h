#pragma once

#include <QDialog>
#include <QMessageBox>
#include <string>

#include "desktop/windows/pointers_down.h"

namespace marlex {

/// Whether no box may block this window. True for the main window, whose call button must work and
/// which must close at any time.
bool StaysFree(const QWidget& window);

/// Makes a message box in plain text, without buttons, as a child of `parent`.
QMessageBox* MakeBox(QMessageBox::Icon icon, const std::string& caption, const std::string& body,
                     QWidget* parent);

/// Opens a box without waiting for it; it deletes itself when it closes. It blocks the editor or
/// dialog that it belongs to, but neither the main window nor a dialog of the main window, since
/// blocking a dialog also blocks its owner. A box that appears takes the keyboard focus from the
/// front window, which would cut off the call of an operator who is speaking; so it appears only
/// when no mouse button and no finger is down.
void OpenWithoutWaiting(QDialog* box, const PointersDown& pointers);

}  // namespace marlex
