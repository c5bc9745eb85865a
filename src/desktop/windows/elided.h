#pragma once

#include <QLabel>
#include <QPushButton>

namespace marlex {

/// One line with a name that the operator chose, of any length. What does not fit is replaced by an
/// ellipsis in the middle, so that names with a common beginning stay apart; the tool tip then
/// shows the whole name. With the face "zone" the letters get narrower before any is left out.
class ElidedLabel : public QLabel {
 public:
  using QLabel::QLabel;

  /// The line as it is painted at the current width.
  QString ShownLine() const;
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QFont ShownFont() const;
  QSize RoomFor(int letters) const;
};

/// A button with such a name.
class ElidedButton : public QPushButton {
 public:
  explicit ElidedButton(QWidget* parent = nullptr) : QPushButton(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  }

  QString ShownLine() const;
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void initStyleOption(QStyleOptionButton* option) const override;

 private:
  QSize RoomFor(int letters) const;
};

}  // namespace marlex
