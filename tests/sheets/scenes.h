#pragma once

#include <functional>
#include <string>
#include <vector>

#include "i18n/languages.h"
#include "sheets/shown_desk.h"

namespace marlex {

inline constexpr QSize kSmallScreen(1024, 700);  // of 1024 x 768, without the desktop's own bars

/// One state of one window, which the operator can come to see.
struct Scene {
  std::string Name;  // of the picture
  DeskOptions Options;
  std::function<QWidget&(ShownDesk&)> Reach;  // brings the desk there; the window to look at
};

const std::vector<Scene>& Scenes();
const Scene& SceneOf(const std::string& name);

/// The languages in which the scenes are looked at: all of them. Under the sanitizers, which make
/// each step slow, a few of unlike letters, lengths and directions: a fault of memory shows in any.
std::vector<Language> PaintedLanguages();

/// A shop with music, messages and a day's schedule.
DeskOptions Shop();

}  // namespace marlex
