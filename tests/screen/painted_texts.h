#pragma once

#include <QtWidgets>

namespace marlex {

/// A screen that keeps of all that is painted on it the texts alone, each with its place.
class PaintedTexts : public QPaintDevice {
 public:
  struct Piece {
    QString Text;  // a word or several, of one font
    QRectF Place;
  };

  explicit PaintedTexts(QWidget& painter);
  ~PaintedTexts() override;

  /// What a widget paints by itself, without its children.
  static QList<Piece> Of(QWidget& widget);

  /// What a view paints for one of its rows or cells; places are those of its viewport.
  static QList<Piece> Of(QAbstractItemView& view, const QModelIndex& index);

  QPaintEngine* paintEngine() const override;

 protected:
  int metric(PaintDeviceMetric metric) const override;

 private:
  class Engine;

  QWidget& Painter;
  std::unique_ptr<Engine> Keeper;
};

}  // namespace marlex
