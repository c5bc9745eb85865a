#include "desktop/windows/open_box.h"

#include <QAbstractButton>
#include <QTimer>
#include <algorithm>

#include "desktop/windows/message_box.h"
#include "desktop/windows/shown_body.h"
#include "desktop/windows/shown_text.h"

namespace marlex {

namespace {

constexpr int kHeldStepMs = 20;

/// Whether the box would block a window that must stay free.
bool WouldBlockAFreeOne(const QDialog& box) {
  for (const QWidget* owner = box.parentWidget(); owner; owner = owner->parentWidget()) {
    if (StaysFree(*owner)) return true;
  }
  return false;
}

/// Makes the buttons of a message box even, with room on either side of their words. The style
/// sheet's least width of a button would let a narrow box cut its word.
void WidenButtons(const QMessageBox& box) {
  constexpr int kMoreRoom = 16;
  int widest = 0;
  for (QAbstractButton* button : box.buttons()) {
    button->ensurePolished();
    widest = std::max(widest, button->sizeHint().width() + kMoreRoom);
  }
  for (QAbstractButton* button : box.buttons()) button->setMinimumWidth(widest);
}

void ShowWhenNothingIsHeld(QDialog* box, const QPointer<const PointersDown>& pointers) {
  if (pointers && pointers->Any()) {
    QTimer::singleShot(kHeldStepMs, box, [box, pointers] { ShowWhenNothingIsHeld(box, pointers); });
    return;
  }
  if (auto* message = dynamic_cast<MessageBox*>(box)) {
    message->MarkPrimaryButton();
    WidenButtons(*message);
  }
  box->show();
  box->activateWindow();
}

}  // namespace

bool StaysFree(const QWidget& window) { return window.property("staysFree").toBool(); }

QMessageBox* MakeBox(QMessageBox::Icon icon, const std::string& caption, const std::string& body,
                     QWidget* parent) {
  return new MessageBox(icon, ShownText(caption), ShownBody(body), parent);
}

void OpenWithoutWaiting(QDialog* box, const PointersDown& pointers) {
  const bool blocks = box->parentWidget() && !WouldBlockAFreeOne(*box);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setWindowModality(blocks ? Qt::WindowModal : Qt::NonModal);
  ShowWhenNothingIsHeld(box, &pointers);
}

}  // namespace marlex
