#include "scenario/editor_hands.h"

#include <vector>

#include "scenario/random_installation.h"

namespace marlex {
namespace {

using Texts = std::vector<std::string>;

const Texts kGoodHours{"0-23", "0-23", "8-10,14", "22-2", "7", "1-3,2", "30-2", "1-234", "007"};
const Texts kGoodMinutes{"00,10,20,30,40,50", "05,25,45", "7", "0,0", "10,123", "59"};
const Texts kBadHours{"", "x", "24", "5-5", "0-24", "-5", "1,,2", "8,", "20-30", "1 2"};
const Texts kBadMinutes{"",
                        "60",
                        "5-10",
                        "1,",
                        "1,,2",
                        "x y",
                        ("0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,"
                         "23,24,25,26,27,28,29,30")};

WavWindow& TheWavWindow(WatchedDesk& desk) { return desk.Sys->TheWindows.TheWavWindow; }

/// A box or a file dialog blocks everything underneath it.
bool IsAtHand(WatchedDesk& desk) {
  return TheWavWindow(desk).Visible && desk.Pc.Dialogs.OpenBoxCount() == 0;
}

Deed AtHand(const std::string& what, const std::function<void(WatchedDesk&)>& hand) {
  return {what, [hand](WatchedDesk& desk) {
            if (IsAtHand(desk)) hand(desk);
          }};
}

Deed ClickAtHand(const std::string& control) {
  return AtHand("click " + control + " of the editor",
                [control](WatchedDesk& desk) { desk.Click(control); });
}

void AddMessage(WatchedDesk& desk, int place) {
  desk.Do([&] { ClickEntry(TheWavWindow(desk).AvailWavs, place); });
}

void Type(WatchedDesk& desk, TextBox WavWindow::*box, const std::string& text) {
  desk.Do([&] { (TheWavWindow(desk).*box).Text = text; });
}

/// Opens the editor if it is closed, and adds a message before pressing the button if there is
/// none.
Deed DrawPreview(Dice& dice) {
  const int place = dice.Between(0, 1000);
  return {"preview with message " + std::to_string(place), [place](WatchedDesk& desk) {
            if (!TheWavWindow(desk).Visible && desk.Shows("mnuSchedule")) desk.Click("mnuSchedule");
            if (!IsAtHand(desk)) return;
            if (!desk.Enabled("PrevKey")) AddMessage(desk, place);
            desk.Click("PrevKey");
          }};
}

/// What an operator does who has chosen the wrong menu item.
Deed DrawGlance(Dice& dice) {
  const int lengthMs = dice.Between(0, dice.OneIn(2) ? 2000 : 20'000);
  return {"open the editor for " + std::to_string(lengthMs) + " ms", [lengthMs](WatchedDesk& desk) {
            if (!desk.Shows("mnuSchedule")) return;
            desk.Click("mnuSchedule");
            desk.Pc.Loop.Schedule(lengthMs, [&desk] { TheWavWindow(desk).Close(); });
          }};
}

Deed DrawList(Dice& dice) {
  const int place = dice.Between(0, 1000);
  switch (dice.Between(1, 5)) {
    case 1:
      return AtHand("select an entry of the sequence", [place](WatchedDesk& desk) {
        ListBox& list = TheWavWindow(desk).SelectedWavs;
        desk.Do([&] {
          if (list.ListCount() > 0) list.SetListIndex(place % list.ListCount());
          list.OnGotFocus();
        });
      });
    case 2:
      return ClickAtHand(dice.OneIn(4) ? "RemAll_Key" : "RemoveKey");
    default:
      return AtHand("add message " + std::to_string(place),
                    [place](WatchedDesk& desk) { AddMessage(desk, place); });
  }
}

/// While the drag goes on, the list may be emptied, or its window closed.
void Drag(WatchedDesk& desk, int from, int to) {
  ListBox& list = TheWavWindow(desk).SelectedWavs;
  const auto moveTo = [&](int entry) {
    if (entry < list.ListCount()) list.SetListIndex(entry);
  };
  desk.Do([&] {
    moveTo(from);
    list.OnMouseDown(MouseButton::Left);
  });
  for (int at = from; at != to; at += at < to ? 1 : -1) {
    desk.Do([&] {
      moveTo(at + (at < to ? 1 : -1));
      list.OnMouseMove();
    });
  }
  desk.Do([&] { list.OnMouseUp(); });
}

Deed DrawDrag(Dice& dice) {
  const int from = dice.Between(0, 5);
  const int to = dice.Between(0, 5);
  return AtHand("drag message " + std::to_string(from) + " to " + std::to_string(to),
                [from, to](WatchedDesk& desk) {
                  const int messages = TheWavWindow(desk).SelectedWavs.ListCount();
                  if (from < messages && to < messages) Drag(desk, from, to);
                });
}

Deed DrawTime(Dice& dice) {
  const bool good = !dice.OneIn(3);
  const bool hours = dice.OneIn(2);
  const std::string text =
      hours ? dice.Of(good ? kGoodHours : kBadHours) : dice.Of(good ? kGoodMinutes : kBadMinutes);
  return AtHand(std::string("type ") + (hours ? "hours \"" : "minutes \"") + text + "\"",
                [hours, text](WatchedDesk& desk) {
                  Type(desk, hours ? &WavWindow::txtHours : &WavWindow::txtMinutes, text);
                });
}

Deed DrawInterval(Dice& dice) {
  static const Texts intervals{"2", "5", "10", "15", "20", "30"};
  const int start = dice.Between(0, 59);
  switch (dice.Between(1, 5)) {
    case 1:
      return ClickAtHand("cmdInterval");
    case 2:
      return ClickAtHand("optInterval_" + dice.Of(intervals));
    case 3:
      return AtHand("start the interval at " + std::to_string(start), [start](WatchedDesk& desk) {
        desk.Do([&] { ClickEntry(TheWavWindow(desk).cmbStart, start); });
      });
    default: {
      const std::string button = dice.OneIn(3) ? "cmdCancel" : "cmdOK";
      return AtHand(button + " of the interval", [button](WatchedDesk& desk) {
        if (TheWavWindow(desk).frInterval.Visible) desk.Click(button);
      });
    }
  }
}

Deed DrawChoice(Dice& dice) {
  const std::string day = "WkDays_" + std::to_string(dice.Between(0, kWeekdays - 1));
  const std::string zone = "cmdZone_" + std::to_string(dice.Between(0, kZones - 1));
  switch (dice.Between(1, 3)) {
    case 1:
      return ClickAtHand(day);
    case 2:
      return AtHand("click " + zone, [zone](WatchedDesk& desk) {
        if (TheWavWindow(desk).frZones.Visible) desk.Click(zone);
      });
    default:
      return ClickAtHand(dice.OneIn(2) ? "optExact" : "optBetween");
  }
}

Deed DrawOpen(Dice& dice) {
  static const Texts others{"", "/app/missing.sch", "/app/Day.lst", "/nowhere/a.sch",
                            "/app/good.sch"};
  const std::string file = dice.OneIn(3) ? dice.Of(others) : "/app/" + dice.Of(ScheduleNames());
  return AtHand("open \"" + file + "\" in the editor", [file](WatchedDesk& desk) {
    desk.Pc.Dialogs.OpenResults = {file};
    desk.Do([&] { TheWavWindow(desk).mnuOpen.OnClick(); });
  });
}

/// Half of the saves are of a complete sequence.
Deed DrawSave(Dice& dice) {
  static const Texts others{"", "/app/new.sch", "/app/new.seq", "/nowhere/new.sch", "/messages"};
  const std::string file = dice.OneIn(3) ? dice.Of(others) : "/app/" + dice.Of(ScheduleNames());
  const bool composes = dice.OneIn(2);
  const std::string hours = dice.Of(kGoodHours);
  const std::string minutes = dice.Of(kGoodMinutes);
  const int place = dice.Between(0, 1000);
  std::string what = "save as \"" + file + "\"";
  if (composes) what += " message " + std::to_string(place) + " at " + hours + " : " + minutes;
  return AtHand(what, [=](WatchedDesk& desk) {
    if (composes) {
      AddMessage(desk, place);
      Type(desk, &WavWindow::txtHours, hours);
      Type(desk, &WavWindow::txtMinutes, minutes);
      desk.Click("WkDays_" + std::to_string(place % kWeekdays));
    }
    if (!IsAtHand(desk)) return;
    desk.Pc.Dialogs.OpenResults = {file};
    desk.Click("mnuSave");
  });
}

/// Works even over a box, as if another window had brought the editor to the front.
Deed DrawClose(Dice& dice) {
  const bool byMenu = dice.OneIn(2);
  return {byMenu ? "leave the editor" : "close the editor's window", [byMenu](WatchedDesk& desk) {
            if (!TheWavWindow(desk).Visible) return;
            desk.Do([&] {
              byMenu ? TheWavWindow(desk).mnuExit.OnClick() : TheWavWindow(desk).Close();
            });
          }};
}

}  // namespace

Deed DrawEditorHand(Dice& dice) {
  using Draw = Deed (*)(Dice&);
  static const std::vector<Draw> draws{[](Dice&) { return ClickOn("mnuSchedule"); },
                                       [](Dice&) { return ClickOn("mnuSchedule"); },
                                       DrawPreview,
                                       DrawPreview,
                                       DrawPreview,
                                       DrawPreview,
                                       DrawGlance,
                                       DrawGlance,
                                       [](Dice&) { return ClickOn("mnuSchedule"); },
                                       DrawList,
                                       DrawList,
                                       DrawList,
                                       DrawList,
                                       DrawDrag,
                                       DrawTime,
                                       DrawTime,
                                       DrawInterval,
                                       DrawInterval,
                                       DrawChoice,
                                       DrawChoice,
                                       DrawOpen,
                                       DrawSave,
                                       DrawSave,
                                       DrawSave,
                                       DrawClose,
                                       DrawClose};
  return dice.Of(draws)(dice);
}

}  // namespace marlex
