#pragma once

#include <QtWidgets>

namespace marlex {

/// Whether the screen is one of high density. Its sheets are saved, but no single pictures: to save
/// those takes longer than to paint and measure them.
bool IsDense();

/// Saves a picture for people to look at. `name` is its file below the sheets of this density,
/// without the extension.
void Keep(const QImage& picture, const QString& name);

/// The same for a text, in a file beside the picture.
void Keep(const QString& text, const QString& name);

/// Pictures side by side, each above its caption.
class Sheet {
 public:
  void Add(const QString& caption, const QPixmap& picture);
  void Save(const QString& name) const;

 private:
  QList<QPair<QString, QImage>> Pictures;
};

}  // namespace marlex
