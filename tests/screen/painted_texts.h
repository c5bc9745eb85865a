#pragma once

#include <QtWidgets>

namespace marlex {

/// A paint device that records only the texts painted on it, each with its place.
class PaintedTexts : public QPaintDevice {
 public:
  struct Piece {
    QString Text;  // one or more words in one font
    QRectF Place;
  };

  explicit PaintedTexts(QWidget& painter);
  ~PaintedTexts() override;

  /// What a widget itself paints, without its children.
  static QList<Piece> Of(QWidget& widget);

  /// What a view paints for one of its rows or cells; places are relative to its viewport.
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
