#include "desktop/windows/glyph_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>
#include <QtMath>

#include "desktop/windows/glyphs.h"

namespace marlex {

namespace {

constexpr int kStyleGap = 4;  // between picture and word, in the size that the style asks for
constexpr int kUnderField = 3;

}  // namespace

QRectF GlyphButton::Picture() const {
  const QRectF part = PaintedPart(property("glyph").toString());
  const QSizeF size = iconSize();
  return {part.left() * size.width(), part.top() * size.height(), part.width() * size.width(),
          part.height() * size.height()};
}

bool GlyphButton::IsAbove() const { return property("picture") == "above"; }

QSize GlyphButton::WordSize() const { return fontMetrics().size(Qt::TextShowMnemonic, text()); }

QSize GlyphButton::sizeHint() const {
  const QSize plain = QPushButton::sizeHint();
  const QSize word = WordSize();
  if (!IsAbove()) {
    const int picture = qCeil(Picture().width()) + kGap;
    return plain + QSize(picture - iconSize().width() - kStyleGap, 0);
  }
  const int besides = plain.width() - iconSize().width() - kStyleGap - word.width();
  const int lower = qMin(iconSize().height(), word.height());
  return {besides + qMax(iconSize().width(), word.width()), plain.height() + kUnderField + lower};
}

QSize GlyphButton::minimumSizeHint() const {
  return {sizeHint().width(), QPushButton::sizeHint().height()};
}

bool GlyphButton::HasPicture() const { return !IsAbove() || height() >= sizeHint().height(); }

GlyphButton::Places GlyphButton::PlacesBeside(const QRectF& room) const {
  const QRectF picture = Picture();
  const int word = WordSize().width();
  const int left = qRound(room.center().x() - (picture.width() + kGap + word) / 2);
  return {.Field = {qRound(left - picture.left()),
                    qRound(room.center().y() - iconSize().height() / 2.0)},
          .Word = {left + qRound(picture.width()) + kGap, qRound(room.top()), word,
                   qRound(room.height())}};
}

GlyphButton::Places GlyphButton::PlacesBelow(const QRectF& room) const {
  const QSize word = WordSize();
  const int above = HasPicture() ? iconSize().height() + kUnderField : 0;
  const int top = qRound(room.center().y() - (above + word.height()) / 2.0) + above;
  return {
      .Field = {qRound(room.center().x() - iconSize().width() / 2.0),
                qRound(top - kGapBelow - Picture().bottom())},
      .Word = {qRound(room.center().x() - word.width() / 2.0), top, word.width(), word.height()}};
}

void GlyphButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  option.icon = QIcon();
  painter.drawControl(QStyle::CE_PushButton, option);
  const QRectF room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
  const auto [field, word] = IsAbove() ? PlacesBelow(room) : PlacesBeside(room);
  if (HasPicture())
    icon().paint(&painter, QRect(field, iconSize()), Qt::AlignCenter,
                 isEnabled() ? QIcon::Normal : QIcon::Disabled);
  painter.drawItemText(word, Qt::AlignVCenter | Qt::TextShowMnemonic, palette(), isEnabled(),
                       text(), QPalette::ButtonText);
}

}  // namespace marlex
