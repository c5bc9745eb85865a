#include "desktop/windows/weekday_header.h"

#include <QPainter>
#include <QRegularExpression>

namespace marlex {

namespace {

QStringList Words(const QString& text) {
  static const QRegularExpression blanks("\\s+");
  return text.split(blanks, Qt::SkipEmptyParts);
}

}  // namespace

QSize WeekdayHeader::sizeHint() const {
  const QStringList words = Words(text());
  int widest = 0;
  for (const QString& word : words)
    widest = std::max(widest, fontMetrics().horizontalAdvance(word));
  return {widest * static_cast<int>(words.size()), fontMetrics().height()};
}

void WeekdayHeader::paintEvent(QPaintEvent*) {
  const QStringList words = Words(text());
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  for (qsizetype word = 0; word < words.size(); ++word) {
    const int left = static_cast<int>(width() * word / words.size());
    const int right = static_cast<int>(width() * (word + 1) / words.size());
    painter.drawText(QRect(left, 0, right - left, height()), Qt::AlignCenter, words[word]);
  }
}

}  // namespace marlex
