#pragma once

#include <QApplication>

#include "desktop/windows/theme_colors.h"

namespace marlex {

/// Makes the desktop dark while it exists. Windows that are opened then come up dark.
struct DarkDesktop {
  DarkDesktop() { QApplication::setPalette(PaletteOf(Scheme::Dark)); }
  ~DarkDesktop() { QApplication::setPalette(PaletteOf(Scheme::Light)); }
  DarkDesktop(const DarkDesktop&) = delete;
  DarkDesktop& operator=(const DarkDesktop&) = delete;
};

}  // namespace marlex
