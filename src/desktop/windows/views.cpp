#include "desktop/windows/views.h"

#include <QApplication>
#include <QScreen>
#include <QWindow>

#include "desktop/windows/glyphs.h"
#include "desktop/windows/theme.h"
#include "ui_frm_about.h"
#include "ui_frm_chime_select.h"
#include "ui_frm_dir_sel.h"
#include "ui_frm_lang_sel.h"
#include "ui_frm_logo.h"
#include "ui_frm_main.h"
#include "ui_frm_playlist.h"
#include "ui_frm_settings.h"
#include "ui_wav_window.h"

namespace marlex {

namespace {

constexpr Qt::WindowFlags kDialog = Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
constexpr Qt::WindowFlags kSplash = Qt::SplashScreen | Qt::FramelessWindowHint;
constexpr QSize kMainSize(1160, 760);  // initial size; the window can be enlarged

template <class Window, class Layout>
std::function<std::unique_ptr<QWidget>()> MakerOf(QObject& theme,
                                                  Qt::WindowFlags flags = Qt::Window) {
  return [&theme, flags] {
    auto window = std::make_unique<Window>();
    Layout().setupUi(window.get());
    window->setWindowFlags(flags);
    PutGlyphs(*window);
    window->installEventFilter(&theme);
    return window;
  };
}

/// The size that the content wants, counting wrapped lines.
QSize FittingSize(QWidget& window) {
  QSize size = window.sizeHint().expandedTo(window.minimumSizeHint());
  size = size.expandedTo(window.minimumSize());
  if (window.hasHeightForWidth())
    size.setHeight(std::max(size.height(), window.heightForWidth(size.width())));
  return size;
}

QRect ScreenRoom() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen ? screen->availableGeometry() : QRect(QPoint(0, 0), kMainSize);
}

void Centre(QWidget& window) {
  window.resize(FittingSize(window));
  window.move(ScreenRoom().center() - window.rect().center());
}

/// An editor keeps the position and size that the operator gave it. It may be smaller than its
/// content wants, down to its minimum size.
void PlaceEditor(QWidget& window) {
  if (window.testAttribute(Qt::WA_Moved)) return;
  const QSize size = FittingSize(window).boundedTo(ScreenRoom().size());
  window.resize(size.expandedTo(window.minimumSizeHint()));
  window.move(ScreenRoom().center() - window.rect().center());
}

void PlaceMain(QWidget& window) {
  if (window.testAttribute(Qt::WA_Moved) || window.testAttribute(Qt::WA_Resized)) return;
  window.resize(kMainSize.boundedTo(ScreenRoom().size()).expandedTo(window.minimumSizeHint()));
}

/// The ribbon of the day in the main window, which from now on follows the window's height.
DayRibbonView& RibbonOf(QWidget& window) {
  auto& ribbon = dynamic_cast<DayRibbonView&>(*window.findChild<QFrame*>("paneDay"));
  ribbon.WatchWindow();
  return ribbon;
}

}  // namespace

// Escape closes the about box alone. Closing the language dialog ends the program, and closing the
// directory picker accepts the directory: too much to happen by accident.
Views::Views(Windows& windows, EventLoop& loop, const std::function<Glance()>& look)
    : MainWindow(MakerOf<QMainWindow, Ui::frmMain>(Look)()),
      Band(*MainWindow),
      FaultsLine(*MainWindow),
      Ribbon(RibbonOf(*MainWindow)),
      MainGrowth(*MainWindow),
      MainLamps(windows.frmMain, *MainWindow),
      MainBinder(windows.frmMain, *MainWindow, loop),
      LogoWindow(windows.frmLogo, loop, {MakerOf<QWidget, Ui::frmLogo>(Look, kSplash), Centre}),
      LangSelWindow(windows.frmlangSel, loop,
                    {MakerOf<QDialog, Ui::frmlangSel>(Look, kDialog), Centre}),
      AboutWindow(windows.frmAbout, loop,
                  {MakerOf<QDialog, Ui::frmAbout>(Look, kDialog), Centre, true}),
      SettingsWindow(windows.frmSettings, loop,
                     {MakerOf<QDialog, Ui::frmSettings>(Look, kDialog), Centre}),
      ScheduleEditorWindow(windows.TheWavWindow, loop,
                           {MakerOf<QMainWindow, Ui::WavWindow>(Look), PlaceEditor}),
      PlaylistWindow(windows.frmPlaylist, loop,
                     {MakerOf<QMainWindow, Ui::frmPlaylist>(Look), PlaceEditor}),
      DirSelWindow(windows.frmDirSel, loop,
                   {MakerOf<QDialog, Ui::frmDirSel>(Look, kDialog),
                    [this](QWidget& picker) { PlacePicker(picker); }}),
      ChimeSelectWindow(windows.frmChimeSelect, loop,
                        {MakerOf<QDialog, Ui::frmChimeSelect>(Look, kDialog),
                         [this](QWidget& picker) { PlacePicker(picker); }}) {
  QGuiApplication::setQuitOnLastWindowClosed(false);
  MainBinder.OnShow = PlaceMain;
  // The clock in the window is painted every second, and band, ribbon and lamps with it.
  MainBinder.OnPaint = [this, look] { PaintGlance(look ? look() : Glance()); };
  MainGrowth.OnChange = [this] {
    Band.MakeRoom();
    MainBinder.RepaintAll();
  };
  Look.OnChange = [this] { RepaintAll(); };
}

void Views::PaintGlance(const Glance& glance) {
  Band.Paint(glance);
  FaultsLine.Paint(glance.Faults);
  Ribbon.Paint(glance.Day);
  MainLamps.Paint(glance);
  MainGrowth.TakePainted();
}

/// A picker blocks only the settings dialog: the main window stays free, so that a call can be made
/// at any moment.
void Views::PlacePicker(QWidget& picker) {
  Centre(picker);
  picker.setWindowModality(Qt::WindowModal);
  Settings().winId();  // the handle that the picker belongs to exists from now on
  picker.winId();
  picker.windowHandle()->setTransientParent(Settings().windowHandle());
}

void Views::RepaintAll() {
  MainBinder.RepaintAll();
  for (FormWindow* window :
       {&LogoWindow, &LangSelWindow, &AboutWindow, &SettingsWindow, &ScheduleEditorWindow,
        &PlaylistWindow, &DirSelWindow, &ChimeSelectWindow})
    window->RepaintAll();
}

}  // namespace marlex
