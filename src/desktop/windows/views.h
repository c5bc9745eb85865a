#pragma once

#include <functional>
#include <memory>

#include "desktop/windows/binder.h"
#include "desktop/windows/day_ribbon_view.h"
#include "desktop/windows/fault_line.h"
#include "desktop/windows/form_window.h"
#include "desktop/windows/glance_band.h"
#include "desktop/windows/growth.h"
#include "desktop/windows/lamps.h"
#include "desktop/windows/theme.h"
#include "platform/event_loop.h"
#include "windows/windows.h"

namespace marlex {

/// The windows on the screen. They come and go with their forms. Needs a running `QApplication`, to
/// which it applies the theme. The forms, the loop and everything that `look` uses must outlive it.
class Views {
 public:
  /// `look` returns what the band, the line of faults, the ribbon and the lamps of the main window
  /// show; without it they show that nothing is on the air.
  Views(Windows& windows, EventLoop& loop, const std::function<Glance()>& look = nullptr);

  QWidget& Main() { return *MainWindow; }
  QWidget& Logo() { return LogoWindow.Widget(); }
  QWidget& LangSel() { return LangSelWindow.Widget(); }
  QWidget& About() { return AboutWindow.Widget(); }
  QWidget& Settings() { return SettingsWindow.Widget(); }
  QWidget& ScheduleEditor() { return ScheduleEditorWindow.Widget(); }
  QWidget& DirSel() { return DirSelWindow.Widget(); }
  QWidget& ChimeSelect() { return ChimeSelectWindow.Widget(); }
  QWidget& Playlist() { return PlaylistWindow.Widget(); }

 private:
  void PaintGlance(const Glance& glance);
  void PlacePicker(QWidget& picker);
  void RepaintAll();

  Theme Look{*qApp};  // constructed before the windows
  std::unique_ptr<QWidget> MainWindow;
  GlanceBand Band;
  FaultLine FaultsLine;
  DayRibbonView& Ribbon;
  Growth MainGrowth;
  Lamps MainLamps;
  Binder MainBinder;
  FormWindow LogoWindow;
  FormWindow LangSelWindow;
  FormWindow AboutWindow;
  FormWindow SettingsWindow;
  FormWindow ScheduleEditorWindow;
  FormWindow PlaylistWindow;
  FormWindow DirSelWindow;
  FormWindow ChimeSelectWindow;
};

}  // namespace marlex
