#pragma once

#include <QGroupBox>

namespace marlex {

/// A frame that always shows its whole title: a title too long for one line is wrapped, and the
/// content moves down. A row of cells with equal stretch fills the frame evenly. The face "tile"
/// centres the title.
class Card : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

  void ShowTitle(const QString& title);
  QSize minimumSizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QRect TitleArea() const;
  int TitleGap() const;
  void MakeRoom();
};

}  // namespace marlex
