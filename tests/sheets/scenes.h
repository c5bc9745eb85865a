#pragma once

#include <functional>
#include <string>
#include <vector>

#include "i18n/languages.h"
#include "sheets/shown_desk.h"

namespace marlex {

/// One state of one window, which the operator may come to see.
struct Scene {
  std::string Name;  // of the picture
  DeskOptions Options;
  std::function<QWidget&(ShownDesk&)> Reach;  // brings the desk there, returns its window
  QSize MainSize = kSmallScreen;              // of the main window
};

const std::vector<Scene>& Scenes();
const Scene& SceneOf(const std::string& name);

/// The languages in which the scenes are shown: all of them. The sanitizers make each step slow, so
/// with them only two are shown that differ in letters, lengths and directions: a memory fault
/// appears in any language.
std::vector<Language> PaintedLanguages();

/// A shop with music, messages and a day's schedule.
DeskOptions Shop();

}  // namespace marlex
