#include <gtest/gtest.h>

#include <QHelpEvent>

#include "desktop/windows/day_ribbon_view.h"
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

/// A text without the ends of its lines, which are added to a long one.
std::string InOneLine(QString text) { return text.remove('\n').toStdString(); }

/// Adds the tip, which must say that text, and not be wider than the main window may be.
void AddTip(QWidget& part, QPoint place, const std::string& text, const QString& caption,
            Sheet& sheet) {
  QLabel* tip = TipAt(part, place);
  ASSERT_TRUE(tip) << text;
  EXPECT_EQ(InOneLine(tip->text()), InOneLine(QString::fromStdString(text)));
  EXPECT_LE(tip->width(), kSmallScreen.width());
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

TEST(ToolTips, NameAnAnnouncementOfTheDayAndAllThatAreInConflict) {
  Sheet sheet;
  const Scene& scene = SceneOf("main_full_day_conflict");
  ShownDesk desk(scene.Options);
  auto& ribbon = dynamic_cast<DayRibbonView&>(*scene.Reach(desk).findChild<QFrame*>("paneDay"));
  const auto placeOf = [&ribbon](int hour, int minute) {
    return QPoint(ribbon.PlaceOf(hour * 60 + minute), ribbon.height() / 2);
  };
  AddTip(ribbon, placeOf(21, 40), "21:40 closing_time", "a time", sheet);
  AddTip(ribbon, placeOf(20, 5), "20:05+ gong", "a break", sheet);
  AddTip(ribbon, placeOf(14, 24), "14:21 gong,offers_of_the_day,gong\n14:21 gong", "a conflict",
         sheet);
  EXPECT_FALSE(TipAt(ribbon, placeOf(1, 0)));
  sheet.Save("tool_tips_day");
}

}  // namespace
}  // namespace marlex
