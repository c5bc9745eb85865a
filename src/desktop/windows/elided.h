#pragma once

#include <QLabel>
#include <QPushButton>

namespace marlex {

/// A line with a name that the operator chose, as long as it may be: what the room does not hold is
/// left out at the end, or in the middle of a path, and the whole name is the tool tip then.
class ElidedLabel : public QLabel {
 public:
  using QLabel::QLabel;

  /// The line as it is painted in the present room.
  QString ShownLine() const;
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QSize RoomFor(int letters) const;
};

/// A key with such a name.
class ElidedKey : public QPushButton {
 public:
  explicit ElidedKey(QWidget* parent = nullptr) : QPushButton(parent) {
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
