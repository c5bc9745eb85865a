#include "desktop/windows/elided.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

#include "desktop/windows/shown_body.h"
#include "desktop/windows/whole_text.h"

namespace marlex {

namespace {

constexpr int kFewestLetters = 6;  // minimum width of a line
constexpr int kUsualLetters = 12;  // preferred width of a line
constexpr int kNarrowestPercent = 75;
constexpr int kStepPercent = 5;

int Letters(const QWidget& widget, int count) {
  return count * widget.fontMetrics().averageCharWidth();
}

bool Narrows(const QWidget& widget) { return widget.property("face").toString() == "zone"; }

}  // namespace

/// As narrow as the text needs it. Letters are as wide as whole pixels, so each width is tried.
QFont ElidedLabel::ShownFont() const {
  QFont shown = font();
  if (!Narrows(*this)) return shown;
  for (int percent = 100; percent >= kNarrowestPercent; percent -= kStepPercent) {
    shown.setStretch(percent);
    const QFontMetrics letters(shown, this);
    if (letters.elidedText(text(), Qt::ElideRight, contentsRect().width()) == text()) break;
  }
  return shown;
}

QString ElidedLabel::ShownLine() const {
  const QFontMetrics letters(ShownFont(), this);
  return letters.elidedText(text(), Qt::ElideMiddle, contentsRect().width());
}

QSize ElidedLabel::RoomFor(int letters) const {
  const QSize frame = size() - contentsRect().size();
  const int line = qMin(fontMetrics().horizontalAdvance(text()), Letters(*this, letters));
  const int percent = Narrows(*this) ? kNarrowestPercent : 100;
  return {line * percent / 100 + frame.width(), fontMetrics().height() + frame.height()};
}

QSize ElidedLabel::minimumSizeHint() const { return RoomFor(kFewestLetters); }

QSize ElidedLabel::sizeHint() const { return RoomFor(kUsualLetters); }

bool ElidedLabel::event(QEvent* event) {
  return ShowWhole(*event, *this, text(), ShownLine() == text()) || QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  drawFrame(&painter);
  painter.setFont(ShownFont());
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(),
                        isEnabled(), InReadingOrder(ShownLine()), foregroundRole());
}

QString ElidedButton::ShownLine() const {
  QStyleOptionButton option;
  QPushButton::initStyleOption(&option);
  const int room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).width();
  return fontMetrics().elidedText(text(), Qt::ElideMiddle, room, Qt::TextShowMnemonic);
}

/// A short name asks for as much room as a long one, so that buttons side by side look alike.
QSize ElidedButton::RoomFor(int letters) const {
  const int more =
      Letters(*this, letters) - fontMetrics().size(Qt::TextShowMnemonic, text()).width();
  const QSize whole = QPushButton::sizeHint();
  return {whole.width() + more, whole.height()};
}

QSize ElidedButton::minimumSizeHint() const { return RoomFor(kFewestLetters); }

QSize ElidedButton::sizeHint() const { return RoomFor(kUsualLetters); }

bool ElidedButton::event(QEvent* event) {
  const QString name = QString(text()).replace("&&", "&");
  return ShowWhole(*event, *this, name, ShownLine() == text()) || QPushButton::event(event);
}

void ElidedButton::initStyleOption(QStyleOptionButton* option) const {
  QPushButton::initStyleOption(option);
  option->text = ShownLine();
}

}  // namespace marlex
