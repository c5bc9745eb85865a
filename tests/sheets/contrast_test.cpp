#include <gtest/gtest.h>

#include <QHelpEvent>

#include "desktop/files/temporary_directory.h"
#include "desktop/windows/contrast.h"
#include "desktop/windows/print_scheme.h"
#include "desktop/windows/qt_dialogs.h"
#include "desktop/windows/theme.h"
#include "desktop/windows/theme_colors.h"
#include "screen/painted_contrast.h"
#include "sheets/opened.h"
#include "sheets/scenes.h"
#include "sheets/sheet.h"

namespace marlex {
namespace {

/// A label with a border, and a button that is disabled, in colours whose contrasts are known.
class Sample : public QWidget {
 public:
  explicit Sample(const QString& sheet) {
    setObjectName("sample");
    auto* column = new QVBoxLayout(this);
    auto* label = new QLabel("MILLION");
    label->setProperty("face", "lamp");
    auto* button = new QPushButton("MILLION");
    button->setEnabled(false);
    for (QWidget* part : {static_cast<QWidget*>(label), static_cast<QWidget*>(button)})
      column->addWidget(part);
    setStyleSheet("#sample { background: #ffffff; } " + sheet);
    show();
    QApplication::processEvents();
  }
};

PaintedContrasts Measured(const QString& sheet) {
  const Theme theme(*qApp);
  Sample sample(sheet);
  PaintedContrasts contrasts;
  contrasts.Measure(sample, "sample");
  return contrasts;
}

TEST(ContrastOfASample, IsThatOfItsColours) {
  const PaintedContrasts contrasts = Measured(
      "QLabel { color: #767676; background: #ffffff; border: 1px solid #949494; "
      "font-size: 20pt; }");
  const QColor white("#ffffff");
  EXPECT_NEAR(contrasts.Lowest("text: QLabel lamp"), Contrast(QColor("#767676"), white), 0.1);
  EXPECT_NEAR(contrasts.Lowest("border: QLabel lamp"), Contrast(QColor("#949494"), white), 0.1);
}

TEST(ContrastOfASample, OfATextThatIsTooPaleIsTooLow) {
  const QString pale =
      "#sample QPushButton:disabled { background: #ffffff; border: none; font-size: 20pt; color: ";
  for (const char* color : {"#a0a0a0", "#767676"}) {
    const double ratio = Measured(pale + color + "; }").Lowest("text: QPushButton off");
    EXPECT_NEAR(ratio, Contrast(QColor(color), QColor("#ffffff")), 0.2);
  }
}

/// The colour within the border of a button or tile, beside its picture and its words.
QColor GroundOfPart(const QWidget& window, const char* name) {
  const qreal ratio = window.devicePixelRatio();
  const QImage picture = window.findChild<QWidget*>(name)->grab().toImage();
  return picture.pixelColor(QPointF(8 * ratio, 8 * ratio).toPoint());
}

int Distance(const QColor& one, const QColor& other) {
  return std::abs(one.red() - other.red()) + std::abs(one.green() - other.green()) +
         std::abs(one.blue() - other.blue());
}

void MeasureBoxes(PaintedContrasts& contrasts) {
  VirtualLoop loop;
  const MemoryDisk disk;
  QtDialogs dialogs(loop, disk);
  for (const BoxIcon icon : {BoxIcon::Critical, BoxIcon::Information}) {
    dialogs.LeaveMsgBox("The file could not be saved.", icon, "Error");
    QApplication::processEvents();
    QWidget* box = QApplication::activeWindow();
    ASSERT_TRUE(box);
    contrasts.Measure(*box, "box");
    box->close();
  }
}

/// The dialogs that open and save files, and the questions that they ask.
void MeasureFileDialogs(PaintedContrasts& contrasts) {
  const test::TemporaryDirectory folder;
  folder.Write("Day.sch", "");
  QDir(QString::fromStdString(folder.Path())).mkdir("Winter");
  VirtualLoop loop;
  MemoryDisk disk;
  disk.AddFile(folder.Path("Day.sch"));
  QtDialogs dialogs(loop, disk);
  for (const bool saves : {false, true}) {
    dialogs.LeaveOpen({"Schedules (*.sch)|*.sch", "sch", folder.Path(), false, saves},
                      [](const std::string&) {});
    QApplication::processEvents();
    QPointer<QWidget> dialog = QApplication::activeWindow();
    ASSERT_TRUE(dialog);
    contrasts.Measure(*dialog, saves ? "save" : "open");
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText(saves ? "Day.sch" : "None.sch");
    dialog->findChild<QDialogButtonBox*>()
        ->button(saves ? QDialogButtonBox::Save : QDialogButtonBox::Open)
        ->click();
    QApplication::processEvents();
    QWidget* question = QApplication::activeWindow();
    ASSERT_TRUE(question && question != dialog);
    contrasts.Measure(*question, "question");
    question->close();
    dialog->close();
    loop.Pump();
  }
}

void MeasureToolTip(ShownDesk& desk, QWidget& window, PaintedContrasts& contrasts) {
  desk.Settle();
  auto& songs = *window.findChild<QListView*>("lstPlaylist");
  QHelpEvent rest(QEvent::ToolTip, QPoint(9, 9), songs.mapToGlobal(QPoint(9, 9)));
  QApplication::sendEvent(songs.viewport(), &rest);
  QApplication::processEvents();
  for (QWidget* tip : QApplication::topLevelWidgets()) {
    if (tip->isVisible() && tip->objectName() == "qtooltip_label") contrasts.Measure(*tip, "tip");
  }
  QToolTip::hideText();
  EXPECT_GT(contrasts.Lowest("text: tool tip"), 0);
}

void MeasureLanguageDialog(PaintedContrasts& contrasts) {
  DeskOptions options;
  options.Language = "";
  ShownDesk desk(options);
  contrasts.Measure(desk.Screen().LangSel(), "languages");
}

/// Its notes are shown in languages other than English, and the longest reach its bright corner.
void MeasureSplash(PaintedContrasts& contrasts) {
  DeskOptions options;
  options.Language = "Dutch";
  ShownDesk desk(options);
  contrasts.Measure(desk.Screen().Logo(), "splash_dutch");
}

class PaintedContrast : public ::testing::TestWithParam<Scheme> {
 protected:
  void SetUp() override { QApplication::setPalette(PaletteOf(GetParam())); }
  void TearDown() override { QApplication::setPalette(PaletteOf(Scheme::Light)); }
};

/// A text needs 4.5:1, a border or mark 3:1, disabled or not. WCAG asks for nothing where a part is
/// disabled, but its text is still read.
TEST_P(PaintedContrast, IsEnoughForEveryTextBorderAndMark) {
  PaintedContrasts contrasts;
  for (const Scene& scene : Scenes()) {
    ShownDesk desk(scene.Options);
    QWidget& window = scene.Reach(desk);
    contrasts.Measure(window, scene.Name);
    if (scene.Name != "main_music") continue;
    MeasureToolTip(desk, window, contrasts);
    MeasureBoxes(contrasts);
    MeasureFileDialogs(contrasts);
  }
  for (const Scene& scene : OpenedScenes()) {
    ShownDesk desk(scene.Options);
    contrasts.Measure(scene.Reach(desk), scene.Name);
  }
  MeasureLanguageDialog(contrasts);
  MeasureSplash(contrasts);
  contrasts.ExpectEnough();
  Keep(contrasts.Report(), GetParam() == Scheme::Dark ? "contrasts_dark" : "contrasts");
}

/// While a message plays, the music's buttons are disabled, and those of the call are not.
TEST_P(PaintedContrast, TellsAButtonThatIsDisabledFromOneThatIsOff) {
  constexpr int kPlain = 30;
  ShownDesk desk(SceneOf("main_message").Options);
  const QWidget& window = SceneOf("main_message").Reach(desk);
  const auto ground = [&window](const char* name) { return GroundOfPart(window, name); };
  EXPECT_GE(Distance(ground("cmdMusicZones_3"), ground("cmdCallZone_3")), kPlain);
  EXPECT_GE(Distance(ground("cmdMusicZones_0"), ground("cmdCallZone_0")), kPlain);
  EXPECT_GE(Distance(ground("cmdMusicZones_0"), ground("cmdMusicZones_3")), kPlain);
  ShownDesk free(SceneOf("main_idle").Options);
  const QWidget& idle = SceneOf("main_idle").Reach(free);
  EXPECT_GE(Distance(GroundOfPart(idle, "cmdSkip"), GroundOfPart(idle, "cmdPlay")), kPlain);
}

TEST_P(PaintedContrast, GreysTheCaptionOfAVolumeThatCannotBeSet) {
  constexpr int kPlain = 25;
  ShownDesk desk(SceneOf("settings_no_microphone").Options);
  const QWidget& window = SceneOf("settings_no_microphone").Reach(desk);
  EXPECT_GE(Distance(GroundOfPart(window, "frMicroVolume"), GroundOfPart(window, "frMusicVol")),
            kPlain);
}

INSTANTIATE_TEST_SUITE_P(Of, PaintedContrast, ::testing::Values(Scheme::Light, Scheme::Dark),
                         [](const auto& scheme) {
                           return scheme.param == Scheme::Dark ? "Dark" : "Light";
                         });

}  // namespace
}  // namespace marlex
