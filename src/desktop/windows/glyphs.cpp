#include "desktop/windows/glyphs.h"

#include <QAbstractButton>
#include <QIcon>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <utility>

#include "desktop/windows/theme.h"

namespace marlex {

namespace {

constexpr qreal kField = 24;  // all pictures are drawn on a field of 24 by 24

QPainterPath Triangle(qreal left) {
  QPainterPath path;
  path.moveTo(left, 5);
  path.lineTo(left + 11, 12);
  path.lineTo(left, 19);
  path.closeSubpath();
  return path;
}

QPainterPath Skip() {
  QPainterPath path = Triangle(5);
  path.addRoundedRect(QRectF(16.5, 5, 3, 14), 1, 1);
  return path;
}

QPainterPath Stop() {
  QPainterPath path;
  path.addRoundedRect(QRectF(6, 6, 12, 12), 2, 2);
  return path;
}

QPainterPath Note() {
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  path.addEllipse(QRectF(4, 15, 6.4, 5));
  path.addEllipse(QRectF(13.4, 13.2, 6.4, 5));
  path.addRect(QRectF(8.6, 6, 1.8, 11.6));
  path.addRect(QRectF(18, 4.2, 1.8, 11.6));
  QPainterPath beam;
  beam.moveTo(8.6, 6);
  beam.lineTo(19.8, 3.6);
  beam.lineTo(19.8, 7.4);
  beam.lineTo(8.6, 9.8);
  beam.closeSubpath();
  path.addPath(beam);
  return path.simplified();
}

QPainterPath MicrophoneShape() {
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  path.addRoundedRect(QRectF(8.8, 3, 6.4, 11), 3.2, 3.2);
  QPainterPath cup;
  cup.moveTo(5.8, 11);
  cup.arcTo(QRectF(5.8, 5, 12.4, 12.4), 180, 180);
  QPainterPathStroker stroker;
  stroker.setWidth(1.8);
  stroker.setCapStyle(Qt::RoundCap);
  path.addPath(stroker.createStroke(cup));
  path.addRect(QRectF(11.1, 17, 1.8, 3));
  path.addRoundedRect(QRectF(8, 19.4, 8, 1.8), 0.9, 0.9);
  return path;
}

QPainterPath Stroked(const QPainterPath& line) {
  QPainterPathStroker stroker;
  stroker.setWidth(2);
  stroker.setCapStyle(Qt::RoundCap);
  stroker.setJoinStyle(Qt::RoundJoin);
  return stroker.createStroke(line);
}

/// A loudspeaker with its waves.
QPainterPath Loudspeaker() {
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  path.addPolygon(QPolygonF({{3, 9}, {7, 9}, {12.5, 4.2}, {12.5, 19.8}, {7, 15}, {3, 15}}));
  path.closeSubpath();
  for (const qreal reach : {3.4, 7.2}) {
    QPainterPath wave;
    const QRectF circle(12.4 - reach, 12 - reach, 2 * reach, 2 * reach);
    wave.arcMoveTo(circle, -48);
    wave.arcTo(circle, -48, 96);
    path.addPath(Stroked(wave));
  }
  return path;
}

/// A warning triangle.
QPainterPath Warning() {
  QPainterPath path;
  path.setFillRule(Qt::OddEvenFill);
  path.addPolygon(QPolygonF({{12, 3}, {22.5, 21}, {1.5, 21}}));
  path.closeSubpath();
  path.addRoundedRect(QRectF(10.9, 9, 2.2, 6.4), 1.1, 1.1);
  path.addEllipse(QRectF(10.7, 16.6, 2.6, 2.6));
  return path;
}

/// A disc with an "i" cut out.
QPainterPath InformationSign() {
  QPainterPath path;
  path.setFillRule(Qt::OddEvenFill);
  path.addEllipse(QRectF(1.5, 1.5, 21, 21));
  path.addRoundedRect(QRectF(10.7, 10.2, 2.6, 7.8), 1.3, 1.3);
  path.addEllipse(QRectF(10.5, 5.6, 3, 3));
  return path;
}

/// A disc with a cross cut out.
QPainterPath ErrorSign() {
  QPainterPath disc;
  disc.addEllipse(QRectF(1.5, 1.5, 21, 21));
  QPainterPath cross;
  cross.moveTo(8, 8);
  cross.lineTo(16, 16);
  cross.moveTo(16, 8);
  cross.lineTo(8, 16);
  return disc.subtracted(Stroked(cross));
}

QPainterPath ClockFace() {
  QPainterPath ring;
  ring.addEllipse(QRectF(3.5, 3.5, 17, 17));
  QPainterPath hands;
  hands.moveTo(12, 7.5);
  hands.lineTo(12, 12);
  hands.lineTo(15.4, 14);
  QPainterPath path = Stroked(ring);
  path.setFillRule(Qt::WindingFill);
  path.addPath(Stroked(hands));
  return path;
}

QPainterPath Dash() {
  QPainterPath path;
  path.addRoundedRect(QRectF(5, 10.9, 14, 2.2), 1.1, 1.1);
  return path;
}

QPainterPath PathOf(const QString& name) {
  if (name == "play") return Triangle(7);
  if (name == "skip") return Skip();
  if (name == "stop") return Stop();
  if (name == "note" || name == "music") return Note();
  if (name == "message") return Loudspeaker();
  if (name == "amplifier" || name == "warning") return Warning();
  if (name == "error") return ErrorSign();
  if (name == "information") return InformationSign();
  if (name == "clock") return ClockFace();
  if (name == "silence") return Dash();
  return MicrophoneShape();
}

/// Paints the picture at any size, in the colour of the button's state.
class GlyphEngine : public QIconEngine {
 public:
  /// `atRest` names the colour of the button in its normal state.
  GlyphEngine(const QPainterPath& path, const char* atRest) : Path(path), AtRest(atRest) {}

  void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State state) override {
    const char* enabled = state == QIcon::On ? "on-text" : AtRest;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(area.topLeft());
    painter->scale(area.width() / kField, area.height() / kField);
    painter->fillPath(Path, ThemeColorNow(mode == QIcon::Disabled ? "off-text" : enabled));
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new GlyphEngine(*this); }

 private:
  QPainterPath Path;
  const char* AtRest;
};

const char* RestColour(const QAbstractButton& button) {
  const QString face = button.property("face").toString();
  if (face == "primary" || face == "call") return "on-accent";
  return face == "toggle" ? "off-glyph" : "glyph";
}

}  // namespace

QPixmap GlyphPicture(const QString& glyph, const QColor& color, int size, qreal ratio) {
  QPixmap picture(QSize(size, size) * ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size * ratio / kField, size * ratio / kField);
  painter.fillPath(PathOf(glyph), color);
  painter.end();
  picture.setDevicePixelRatio(ratio);
  return picture;
}

QRectF PaintedPart(const QString& glyph) {
  const QRectF part = PathOf(glyph).boundingRect();
  return {part.topLeft() / kField, part.size() / kField};
}

void GlyphSign::paintEvent(QPaintEvent*) {
  const int side = qMin(width(), height());
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate((width() - side) / 2.0, (height() - side) / 2.0);
  painter.scale(side / kField, side / kField);
  painter.fillPath(PathOf(property("glyph").toString()), palette().color(foregroundRole()));
}

void PutGlyphs(QWidget& window) {
  for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
    const QString name = button->property("glyph").toString();
    if (name.isEmpty()) continue;
    button->setIcon(QIcon(new GlyphEngine(PathOf(name), RestColour(*button))));
    button->setIconSize(kGlyphSize);
  }
}

}  // namespace marlex
