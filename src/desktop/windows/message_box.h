#pragma once

#include <QMessageBox>

namespace marlex {

/// A message box with the program's own sign, and with the button that Enter presses as its primary
/// one. It runs from left to right in every language, like all windows.
class MessageBox : public QMessageBox {
 public:
  MessageBox(QMessageBox::Icon icon, const QString& caption, const QString& body, QWidget* parent);

  /// Call before the buttons are measured; `showEvent` calls it, too.
  void MarkPrimaryButton();

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void PutSign();
  void LayOutText();
};

}  // namespace marlex
