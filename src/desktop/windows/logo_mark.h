#pragma once

#include <QIcon>
#include <QWidget>

namespace marlex {

/// The product's mark, painted as vectors: five bars of a level meter that form an M on a rounded
/// field.
class LogoMark : public QWidget {
 public:
  explicit LogoMark(QWidget* parent = nullptr) : QWidget(parent) {}

  /// Paints the mark into a square of `size` pixels at the origin.
  static void Paint(QPainter& painter, qreal size);

  /// The mark as a window icon.
  static QIcon Icon();

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace marlex
