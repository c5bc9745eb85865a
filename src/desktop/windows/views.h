#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "desktop/windows/binder.h"
#include "desktop/windows/day_ribbon_view.h"
#include "desktop/windows/fault_line.h"
#include "desktop/windows/glance_band.h"
#include "desktop/windows/growth.h"
#include "desktop/windows/lamps.h"
#include "desktop/windows/theme.h"
#include "platform/event_loop.h"
#include "windows/windows.h"

namespace marlex {

/// The windows on the screen. All exist from the start, hidden, and come and go with their forms.
/// Needs a running `QApplication`, to which it applies the theme. The forms, the loop and
/// everything that `look` uses must outlive it.
class Views {
 public:
  /// `look` returns what the band, the line of faults, the ribbon and the lamps of the main window
  /// show; without it they show that nothing is on the air.
  Views(Windows& windows, EventLoop& loop, const std::function<Glance()>& look = nullptr);
  ~Views();

  QWidget& Main() { return *MainWindow; }
  QWidget& Logo() { return *LogoWindow; }
  QWidget& LangSel() { return *LangSelWindow; }
  QWidget& About() { return *AboutWindow; }
  QWidget& Settings() { return *SettingsWindow; }
  QWidget& ScheduleEditor() { return *ScheduleEditorWindow; }
  QWidget& DirSel() { return *DirSelWindow; }
  QWidget& ChimeSelect() { return *ChimeSelectWindow; }
  QWidget& Playlist() { return *PlaylistWindow; }

 private:
  void PaintGlance(const Glance& glance);
  void ConnectPicker(Form& form, QWidget& window, EventLoop& loop);
  Binder& Connect(Form& form, QWidget& window, EventLoop& loop,
                  std::function<void(QWidget&)> place);

  Theme Look{*qApp};  // constructed before the windows
  std::unique_ptr<QWidget> MainWindow;
  std::unique_ptr<QWidget> LogoWindow;
  std::unique_ptr<QWidget> LangSelWindow;
  std::unique_ptr<QWidget> AboutWindow;
  std::unique_ptr<QWidget> SettingsWindow;
  std::unique_ptr<QWidget> ScheduleEditorWindow;
  std::unique_ptr<QWidget> DirSelWindow;
  std::unique_ptr<QWidget> ChimeSelectWindow;
  std::unique_ptr<QWidget> PlaylistWindow;
  std::unique_ptr<GlanceBand> Band;
  std::unique_ptr<FaultLine> FaultsLine;
  DayRibbonView* Ribbon = nullptr;  // of the main window
  std::unique_ptr<Lamps> MainLamps;
  std::unique_ptr<Growth> MainGrowth;
  std::vector<std::unique_ptr<Binder>> Binders;  // destroyed before the windows
};

}  // namespace marlex
