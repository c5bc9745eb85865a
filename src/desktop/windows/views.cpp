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
constexpr QSize kMainSize(1160, 760);  // initial size; the window can be enlarged

template <class Window, class Layout>
std::unique_ptr<QWidget> Make(Layout layout, Qt::WindowFlags flags = Qt::Window) {
  auto window = std::make_unique<Window>();
  layout.setupUi(window.get());
  window->setWindowFlags(flags);
  PutGlyphs(*window);
  return window;
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

}  // namespace

Views::Views(Windows& windows, EventLoop& loop, const std::function<Glance()>& look) {
  QGuiApplication::setQuitOnLastWindowClosed(false);
  MainWindow = Make<QMainWindow>(Ui::frmMain());
  LogoWindow = Make<QWidget>(Ui::frmLogo(), Qt::SplashScreen | Qt::FramelessWindowHint);
  LangSelWindow = Make<QDialog>(Ui::frmlangSel(), kDialog);
  AboutWindow = Make<QDialog>(Ui::frmAbout(), kDialog);
  SettingsWindow = Make<QDialog>(Ui::frmSettings(), kDialog);
  ScheduleEditorWindow = Make<QMainWindow>(Ui::WavWindow());
  DirSelWindow = Make<QDialog>(Ui::frmDirSel(), kDialog);
  ChimeSelectWindow = Make<QDialog>(Ui::frmChimeSelect(), kDialog);
  PlaylistWindow = Make<QMainWindow>(Ui::frmPlaylist());
  Band = std::make_unique<GlanceBand>(*MainWindow);
  FaultsLine = std::make_unique<FaultLine>(*MainWindow);
  Ribbon = dynamic_cast<DayRibbonView*>(MainWindow->findChild<QFrame*>("paneDay"));
  Ribbon->WatchWindow();
  MainGrowth = std::make_unique<Growth>(*MainWindow);
  MainLamps = std::make_unique<Lamps>(windows.frmMain, *MainWindow);
  Binder& main = Connect(windows.frmMain, *MainWindow, loop, PlaceMain);
  // The clock in the window is painted every second, and band, ribbon and lamps with it.
  main.OnPaint = [this, look] { PaintGlance(look ? look() : Glance()); };
  MainGrowth->OnChange = [this, &main] {
    Band->MakeRoom();
    main.RepaintAll();
  };
  Connect(windows.frmLogo, *LogoWindow, loop, Centre);
  // Closing the language dialog ends the program, and closing the directory picker accepts the
  // directory: too much to happen on an accidental Escape.
  Connect(windows.frmlangSel, *LangSelWindow, loop, Centre);
  Connect(windows.frmAbout, *AboutWindow, loop, Centre).EscapeCloses = true;
  Connect(windows.frmSettings, *SettingsWindow, loop, Centre);
  Connect(windows.TheWavWindow, *ScheduleEditorWindow, loop, PlaceEditor);
  Connect(windows.frmPlaylist, *PlaylistWindow, loop, PlaceEditor);
  ConnectPicker(windows.frmDirSel, *DirSelWindow, loop);
  ConnectPicker(windows.frmChimeSelect, *ChimeSelectWindow, loop);
  Look.OnChange = [this] {
    for (const auto& binder : Binders) binder->RepaintAll();
  };
}

Views::~Views() = default;

void Views::PaintGlance(const Glance& glance) {
  Band->Paint(glance);
  FaultsLine->Paint(glance.Faults);
  Ribbon->Paint(glance.Day);
  MainLamps->Paint(glance);
  MainGrowth->TakePainted();
}

/// A picker blocks only the settings dialog: the main window stays free, so that a call can be made
/// at any moment.
void Views::ConnectPicker(Form& form, QWidget& window, EventLoop& loop) {
  window.setWindowModality(Qt::WindowModal);
  Connect(form, window, loop, [this](QWidget& picker) {
    Centre(picker);
    SettingsWindow->winId();  // creates the native handle if there is none
    picker.winId();
    picker.windowHandle()->setTransientParent(SettingsWindow->windowHandle());
  });
}

Binder& Views::Connect(Form& form, QWidget& window, EventLoop& loop,
                       std::function<void(QWidget&)> place) {
  Binders.push_back(std::make_unique<Binder>(form, window, loop));
  Binders.back()->OnShow = std::move(place);
  window.installEventFilter(&Look);
  return *Binders.back();
}

}  // namespace marlex
