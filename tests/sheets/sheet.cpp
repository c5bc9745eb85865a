#include "sheets/sheet.h"

#include <gtest/gtest.h>

#include "places.h"

namespace marlex {
namespace {

constexpr int kColumns = 4;
constexpr int kGap = 12;
constexpr int kCaptionHeight = 22;
constexpr int kThumbnailWidth = 560;

/// Path of a file of the sheets of this density, whose folder exists.
QString PathOf(const QString& name) {
  const int percent = qRound(100 * qApp->devicePixelRatio());
  const QFileInfo file(QString(MARLEX_BINARY_DIR "/sheets/%1/%2").arg(percent).arg(name));
  EXPECT_TRUE(QDir().mkpath(file.path()));
  return file.filePath();
}

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kKeepsPictures = false;  // the other build's are the same
#else
constexpr bool kKeepsPictures = true;
#endif

}  // namespace

bool IsDense() { return qApp->devicePixelRatio() > 1; }

void Keep(const QImage& picture, const QString& name) {
  if (!kKeepsPictures) return;
  constexpr int kFast = 85;  // compression that takes half as long and a quarter more room
  EXPECT_TRUE(picture.save(PathOf(name + ".png"), "PNG", kFast)) << name.toStdString();
}

void Keep(const QString& text, const QString& name) {
  QFile file(PathOf(name + ".txt"));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0)
      << name.toStdString();
}

bool IsDark(const QImage& picture) { return picture.pixelColor(2, 2).lightness() < 90; }

void Sheet::Add(const QString& caption, const QPixmap& picture) {
  const qreal ratio = picture.devicePixelRatio();
  const int width = qMin(kThumbnailWidth, qRound(picture.width() / ratio));
  QImage image = picture.toImage().scaledToWidth(width, Qt::SmoothTransformation);
  image.setDevicePixelRatio(1);
  Pictures.append({caption, image});
}

void Sheet::AddLook(bool isDark, const QPixmap& picture) {
  const char* look = isDark ? "dark" : "light";
  EXPECT_EQ(IsDark(picture.toImage()), isDark) << look;
  Add(look, picture);
}

void Sheet::ExpectDark() const {
  EXPECT_FALSE(Pictures.isEmpty());
  for (const auto& [caption, image] : Pictures) EXPECT_TRUE(IsDark(image)) << caption.toStdString();
}

void Sheet::Save(const QString& name) const {
  QSize cell;
  for (const auto& [caption, image] : Pictures) cell = cell.expandedTo(image.size());
  const int step = cell.height() + kCaptionHeight + kGap;
  const int rows = static_cast<int>((Pictures.size() + kColumns - 1) / kColumns);
  QImage sheet(kColumns * (cell.width() + kGap) + kGap, rows * step + kGap, QImage::Format_RGB32);
  sheet.fill(QColor(0x80, 0x88, 0x90));
  QPainter painter(&sheet);
  painter.setPen(Qt::white);
  for (int index = 0; index < Pictures.size(); ++index) {
    const int left = kGap + index % kColumns * (cell.width() + kGap);
    const int top = kGap + index / kColumns * step;
    painter.drawText(QRect(left, top, cell.width(), kCaptionHeight), Qt::AlignVCenter,
                     Pictures[index].first);
    painter.drawImage(left, top + kCaptionHeight, Pictures[index].second);
  }
  Keep(sheet, name);
}

}  // namespace marlex
