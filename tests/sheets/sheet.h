#pragma once

#include <QtWidgets>

namespace marlex {

/// Whether the screen is one of high density. Its sheets are saved, but no single pictures: to save
/// those takes longer than to paint and measure them.
bool IsDense();

/// Saves a picture for people to look at, except in the sanitized build. `name` is its file below
/// the sheets of this density, without the extension.
void Keep(const QImage& picture, const QString& name);

/// The same for a text, in a file beside the picture.
void Keep(const QString& text, const QString& name);

/// Whether the ground of a picture is that of a dark window.
bool IsDark(const QImage& picture);

/// Pictures side by side, each above its caption.
class Sheet {
 public:
  void Add(const QString& caption, const QPixmap& picture);

  /// Adds the picture of a light or a dark desktop, and fails if it is not one.
  void AddLook(bool isDark, const QPixmap& picture);

  void Save(const QString& name) const;

  /// Fails for each picture that is not dark.
  void ExpectDark() const;

 private:
  QList<QPair<QString, QImage>> Pictures;
};

}  // namespace marlex
