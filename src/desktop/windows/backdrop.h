#pragma once

#include <QFrame>

namespace marlex {

/// The dark background of the product's name: sound waves that spread from the right.
class Backdrop : public QFrame {
 public:
  using QFrame::QFrame;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace marlex
