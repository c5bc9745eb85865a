#include "screen/parts.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QSlider>
#include <algorithm>
#include <utility>

namespace marlex {

namespace {

constexpr int kSampleStep = 3;  // of the pixels that are counted

QRect AreaOf(const QWidget& part) {
  return {part.isWindow() ? QPoint() : part.mapTo(part.window(), QPoint()), part.size()};
}

/// The colour that covers most of an area.
QString MainColour(const QImage& picture, const QRect& area) {
  const qreal ratio = picture.devicePixelRatio();
  const QRect pixels = QRect(area.topLeft() * ratio, area.size() * ratio) & picture.rect();
  QMap<QRgb, int> counts;
  QRgb run = 0;  // colour of the last pixels, which are counted together
  int length = 0;
  for (int y = pixels.top(); y <= pixels.bottom(); y += kSampleStep) {
    for (int x = pixels.left(); x <= pixels.right(); x += kSampleStep) {
      const QRgb pixel = picture.pixel(x, y);
      if (pixel != run) counts[std::exchange(run, pixel)] += std::exchange(length, 0);
      ++length;
    }
  }
  counts[run] += length;
  const QRgb best = std::max_element(counts.begin(), counts.end()).key();
  return QColor(best).name();
}

/// The entries that the view shows first and last.
QString EntriesOf(const QAbstractItemView& view) {
  const QRect area = view.viewport()->rect();
  const QModelIndex first = view.indexAt(area.topLeft() + QPoint(1, 1));
  const QModelIndex last = view.indexAt(area.bottomLeft() + QPoint(1, -1));
  return QString::number(view.model()->rowCount()) + " entries, " + first.data().toString() +
         " to " + last.data().toString();
}

QString TextOf(const QWidget& part) {
  if (part.isWindow()) return part.windowTitle();
  if (auto* label = qobject_cast<const QLabel*>(&part)) return label->text();
  if (auto* button = qobject_cast<const QAbstractButton*>(&part)) return button->text();
  if (auto* frame = qobject_cast<const QGroupBox*>(&part)) return frame->title();
  if (auto* line = qobject_cast<const QLineEdit*>(&part)) return line->text();
  if (auto* box = qobject_cast<const QComboBox*>(&part)) return box->currentText();
  if (auto* slider = qobject_cast<const QSlider*>(&part)) return QString::number(slider->value());
  if (auto* view = qobject_cast<const QAbstractItemView*>(&part); view && view->model())
    return EntriesOf(*view);
  return {};
}

QString StateOf(const QWidget& part) {
  const auto* button = qobject_cast<const QAbstractButton*>(&part);
  return QString(part.isEnabled() ? "" : " disabled") +
         (button && button->isChecked() ? " down" : "");
}

QString LineOf(const QWidget& part, const QImage& picture) {
  const QRect area = AreaOf(part);
  return QString("%1: %2,%3 %4x%5 ")
             .arg(part.objectName())
             .arg(area.x())
             .arg(area.y())
             .arg(area.width())
             .arg(area.height()) +
         MainColour(picture, area) + " \"" + TextOf(part) + '"' + StateOf(part);
}

}  // namespace

QString PartsOf(QWidget& window) {
  const QImage picture = window.grab().toImage();
  QStringList lines;
  for (const QWidget* part : window.findChildren<QWidget*>()) {
    const bool isNamed = !part->objectName().isEmpty() && !part->objectName().startsWith("qt_");
    if (isNamed && part->isVisible()) lines << LineOf(*part, picture);
  }
  std::sort(lines.begin(), lines.end());
  return (QStringList(LineOf(window, picture)) + lines).join('\n');
}

}  // namespace marlex
