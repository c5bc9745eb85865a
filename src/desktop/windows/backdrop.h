#pragma once

#include <QFrame>

namespace marlex {

/// The dark field behind the product's name: sound that spreads from the right.
class Backdrop : public QFrame {
 public:
  using QFrame::QFrame;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace marlex
