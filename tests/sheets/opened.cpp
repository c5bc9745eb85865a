#include "sheets/opened.h"

namespace marlex {
namespace {

QWidget& ListOfHours(ShownDesk& desk) {
  auto& hours =
      *SceneOf("playlist_editor_times").Reach(desk).findChild<QComboBox*>("cmbStartHours");
  hours.showPopup();
  desk.Settle();
  return *hours.view()->window();
}

QWidget& MenuUnderThePointer(ShownDesk& desk) {
  auto& menu = dynamic_cast<QMenu&>(SceneOf("menu_file").Reach(desk));
  const auto actions = menu.actions();
  menu.setActiveAction(*std::find_if(actions.begin(), actions.end(), [](const QAction* action) {
    return action->isEnabled() && !action->isSeparator();
  }));
  return menu;
}

}  // namespace

const std::vector<Scene>& OpenedScenes() {
  static const std::vector<Scene> scenes = {{"opened_list", Shop(), ListOfHours},
                                            {"menu_highlighted", Shop(), MenuUnderThePointer}};
  return scenes;
}

}  // namespace marlex
