#include "desktop/windows/elided.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QToolTip>

namespace marlex {

namespace {

constexpr int kFewestLetters = 6;  // that a line always has room for
constexpr int kUsualLetters = 12;  // that it asks room for

int Letters(const QWidget& widget, int count) {
  return count * widget.fontMetrics().averageCharWidth();
}

/// Shows the whole name; false when the line shows it already.
bool ShowWhole(const QHelpEvent& event, QWidget& widget, const QString& name,
               const QString& shown) {
  if (shown == name) return false;
  QToolTip::showText(event.globalPos(), name.toHtmlEscaped(), &widget);
  return true;
}

}  // namespace

QString ElidedLabel::ShownLine() const {
  const bool isPath = text().contains('/') || text().contains('\\');
  return fontMetrics().elidedText(text(), isPath ? Qt::ElideMiddle : Qt::ElideRight,
                                  contentsRect().width());
}

QSize ElidedLabel::RoomFor(int letters) const {
  const QSize frame = size() - contentsRect().size();
  const int line = qMin(fontMetrics().horizontalAdvance(text()), Letters(*this, letters));
  return {line + frame.width(), fontMetrics().height() + frame.height()};
}

QSize ElidedLabel::minimumSizeHint() const { return RoomFor(kFewestLetters); }

QSize ElidedLabel::sizeHint() const { return RoomFor(kUsualLetters); }

bool ElidedLabel::event(QEvent* event) {
  const bool asks = event->type() == QEvent::ToolTip;
  if (asks && ShowWhole(static_cast<QHelpEvent&>(*event), *this, text(), ShownLine())) return true;
  return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  drawFrame(&painter);
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(),
                        isEnabled(), ShownLine(), foregroundRole());
}

QString ElidedKey::ShownLine() const {
  QStyleOptionButton option;
  QPushButton::initStyleOption(&option);
  const int room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).width();
  return fontMetrics().elidedText(text(), Qt::ElideRight, room, Qt::TextShowMnemonic);
}

/// A name of few letters asks as much room as one of many, so that keys side by side are alike.
QSize ElidedKey::RoomFor(int letters) const {
  const int more = Letters(*this, letters) - fontMetrics().horizontalAdvance(text());
  const QSize whole = QPushButton::sizeHint();
  return {whole.width() + more, whole.height()};
}

QSize ElidedKey::minimumSizeHint() const { return RoomFor(kFewestLetters); }

QSize ElidedKey::sizeHint() const { return RoomFor(kUsualLetters); }

bool ElidedKey::event(QEvent* event) {
  const bool asks = event->type() == QEvent::ToolTip;
  if (asks && ShowWhole(static_cast<QHelpEvent&>(*event), *this, text(), ShownLine())) return true;
  return QPushButton::event(event);
}

void ElidedKey::initStyleOption(QStyleOptionButton* option) const {
  QPushButton::initStyleOption(option);
  option->text = ShownLine();
}

}  // namespace marlex
