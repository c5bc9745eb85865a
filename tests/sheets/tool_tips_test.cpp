#include <gtest/gtest.h>

#include <QHelpEvent>

#include "i18n/languages.h"
#include "screen/measure.h"
#include "sheets/scenes.h"
#include "sheets/sheet.h"

namespace marlex {
namespace {

/// The tool tip that appears when the pointer rests on a place of a part; null when there is none.
QLabel* TipAt(QWidget& part, QPoint place) {
  QHelpEvent rest(QEvent::ToolTip, place, part.mapToGlobal(place));
  QApplication::sendEvent(&part, &rest);
  QApplication::processEvents();
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->objectName() == "qtooltip_label")
      return qobject_cast<QLabel*>(window);
  }
  return nullptr;
}

void HideTip() {
  QToolTip::hideText();
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == "qtooltip_label") window->hide();
  }
}

/// Adds the tip, which must say that text.
void AddTip(QWidget& part, QPoint place, const std::string& text, const QString& caption,
            Sheet& sheet) {
  QLabel* tip = TipAt(part, place);
  ASSERT_TRUE(tip) << text;
  EXPECT_EQ(tip->text().toStdString(), text);
  ExpectNothingClipped(*tip);
  sheet.Add(caption, tip->grab());
  HideTip();
}

TEST(ToolTips, SayWholeWhatAClickDoesInEveryLanguage) {
  Sheet sheet;
  for (const Language& language : PaintedLanguages()) {
    DeskOptions shop = Shop();
    shop.Language = language.Name;
    ShownDesk desk(shop);
    auto& songs = *SceneOf("main_music").Reach(desk).findChild<QListView*>("lstPlaylist");
    const std::string text = desk.Main().lstPlaylist.ToolTipText;
    const QRect area = songs.viewport()->rect();
    for (const QPoint place : {area.topLeft(), area.bottomLeft()})  // on an entry, and on none
      AddTip(*songs.viewport(), place, text, language.Name, sheet);
  }
  sheet.Save("tool_tips");
}

TEST(ToolTips, SayWholeWhatIsElided) {
  Sheet sheet;
  const Scene& scene = SceneOf("main_long_names");
  ShownDesk desk(scene.Options);
  QWidget& window = scene.Reach(desk);
  auto& songs = *window.findChild<QListView*>("lstPlaylist");
  auto& table = *window.findChild<QTableView*>("grdSchedule");
  AddTip(*songs.viewport(), QPoint(20, 10), desk.Main().lstPlaylist.List(0), "song", sheet);
  const QModelIndex first = table.indexAt(QPoint(4, 4));
  for (const int column : {3, 4}) {
    const QRect cell = table.visualRect(first.siblingAtColumn(column));
    const std::string text = first.siblingAtColumn(column).data().toString().toStdString();
    AddTip(*table.viewport(), cell.center(), text, QString::number(column), sheet);
  }
  auto& band = *window.findChild<QLabel*>("paneOnAirName");
  AddTip(band, band.rect().center(), band.text().toStdString(), "band", sheet);
  sheet.Save("tool_tips_elided");
}

}  // namespace
}  // namespace marlex
