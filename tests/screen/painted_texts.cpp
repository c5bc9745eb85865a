#include "screen/painted_texts.h"

namespace marlex {

class PaintedTexts::Engine : public QPaintEngine {
 public:
  Engine() : QPaintEngine(AllFeatures) {}

  bool begin(QPaintDevice*) override { return true; }
  bool end() override { return true; }
  void updateState(const QPaintEngineState&) override {}
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
  void drawPath(const QPainterPath&) override {}
  void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
  void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {}
  Type type() const override { return User; }

  /// Blanks have no shape, and neither have the marks that direct a text.
  void drawTextItem(const QPointF& foot, const QTextItem& item) override {
    if (item.text().trimmed().isEmpty() || item.width() == 0) return;
    const QRectF place(foot.x(), foot.y() - item.ascent(), item.width(),
                       item.ascent() + item.descent());
    Kept.append({item.text(), painter()->deviceTransform().mapRect(place)});
  }

  QList<Piece> Kept;
};

PaintedTexts::PaintedTexts(QWidget& painter)
    : Painter(painter), Keeper(std::make_unique<Engine>()) {}

PaintedTexts::~PaintedTexts() = default;

QPaintEngine* PaintedTexts::paintEngine() const { return Keeper.get(); }

int PaintedTexts::metric(PaintDeviceMetric metric) const {
  switch (metric) {
    case PdmWidth:
      return Painter.width();
    case PdmHeight:
      return Painter.height();
    case PdmDpiX:
    case PdmPhysicalDpiX:
      return Painter.logicalDpiX();
    case PdmDpiY:
    case PdmPhysicalDpiY:
      return Painter.logicalDpiY();
    case PdmDevicePixelRatio:
      return 1;
    case PdmDevicePixelRatioScaled:
      return qRound(devicePixelRatioFScale());
    default:
      return 0;
  }
}

QList<PaintedTexts::Piece> PaintedTexts::Of(QWidget& widget) {
  PaintedTexts screen(widget);
  QPainter painter(&screen);
  // As on a widget; on any other device Qt would follow each text.
  painter.setLayoutDirection(QGuiApplication::layoutDirection());
  widget.render(&painter, QPoint(), QRegion(), QWidget::RenderFlags());
  return screen.Keeper->Kept;
}

QList<PaintedTexts::Piece> PaintedTexts::Of(QAbstractItemView& view, const QModelIndex& index) {
  PaintedTexts screen(*view.viewport());
  QStyleOptionViewItem option;
  option.initFrom(&view);
  option.widget = &view;
  option.rect = view.visualRect(index);
  option.textElideMode = view.textElideMode();
  option.showDecorationSelected = true;
  QPainter painter(&screen);
  view.itemDelegateForIndex(index)->paint(&painter, option, index);
  return screen.Keeper->Kept;
}

}  // namespace marlex
