#pragma once

#include <QApplication>

#include "desktop/windows/theme_colors.h"

namespace marlex {

/// A dark desktop for as long as the object lives. Windows made meanwhile come up dark.
struct DarkDesktop {
  DarkDesktop() { QApplication::setPalette(PaletteOf(Scheme::Dark)); }
  ~DarkDesktop() { QApplication::setPalette(PaletteOf(Scheme::Light)); }
  DarkDesktop(const DarkDesktop&) = delete;
  DarkDesktop& operator=(const DarkDesktop&) = delete;
};

}  // namespace marlex
