#pragma once

#include <QLabel>

namespace marlex {

/// A text that wraps into lines of about one length, so that none ends on a lone word.
class BalancedLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QRect TextArea() const;
};

}  // namespace marlex
