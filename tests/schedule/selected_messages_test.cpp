#include "schedule/selected_messages.h"

#include <gtest/gtest.h>

#include "schedule/editor_desk.h"

namespace marlex {
namespace {

TEST(SecondsText, IsRoundedToOneDecimalPlaceAHalfToTheEvenDigit) {
  EXPECT_EQ(SecondsText(0), "0");
  EXPECT_EQ(SecondsText(3000), "3");
  EXPECT_EQ(SecondsText(12'340), "12.3");
  EXPECT_EQ(SecondsText(12'350), "12.4");
  EXPECT_EQ(SecondsText(12'450), "12.4");
  EXPECT_EQ(SecondsText(12'451), "12.5");
  EXPECT_EQ(SecondsText(49), "0");
  EXPECT_EQ(SecondsText(-300), "-0.3");
  EXPECT_EQ(SecondsText(-2500), "-2.5");
}

TEST(SecondsText, IsReadFromTheLeftAsFarAsItIsANumber) {
  EXPECT_EQ(MillisecondsOf(""), 0);
  EXPECT_EQ(MillisecondsOf("12.4"), 12'400);
  EXPECT_EQ(MillisecondsOf("-0.3"), -300);
  EXPECT_EQ(MillisecondsOf("7 s"), 7000);
  EXPECT_EQ(MillisecondsOf("1e3"), 1000);
  EXPECT_EQ(MillisecondsOf("none"), 0);
}

TEST(SelectedMessages, AClickAddsAMessageToTheEndAsOftenAsItComes) {
  EditorDesk desk;
  EXPECT_EQ(desk.Buttons(), "");
  EXPECT_EQ(desk.Total(), "");
  desk.Add({"welcome", "closing", "welcome", "welcome"});
  EXPECT_EQ(desk.Sequence(), "welcome closing welcome welcome");
  EXPECT_EQ(desk.Total(), "11");
  EXPECT_EQ(desk.Buttons(), "PrevKey RemAll_Key");
}

TEST(SelectedMessages, TheTotalIsRoundedAtEachStep) {
  EditorDesk desk;
  desk.Add({"alarm", "alarm"});
  EXPECT_EQ(desk.Total(), "24.8");  // 12.4 and 12.35
}

TEST(SelectedMessages, EachIsMeasuredByTheSilentPlayer) {
  EditorDesk desk;
  desk.Add({"gong"});
  EXPECT_EQ(desk.Sys->TheFrmPlayers.WavControl.FileName, "/messages/gong.wav");
  EXPECT_EQ(desk.Pc.WavControl.OpenFile(), "");
  EXPECT_EQ(desk.Heard(), "silence");
}

TEST(SelectedMessages, RemovingTakesTheSelectedEntryAndItsTime) {
  EditorDesk desk;
  desk.Add({"welcome", "gong", "closing"});
  EXPECT_FALSE(desk.Enabled("RemoveKey"));
  desk.SelectEntry(1);
  EXPECT_TRUE(desk.Enabled("RemoveKey"));
  desk.Click("RemoveKey");
  EXPECT_EQ(desk.Sequence(), "welcome closing");
  EXPECT_EQ(desk.Total(), "5");
  EXPECT_EQ(desk.Buttons(), "PrevKey RemAll_Key");
  for (int entry = 0; entry < 2; ++entry) {
    desk.SelectEntry(0);
    desk.Click("RemoveKey");
  }
  EXPECT_EQ(desk.Sequence(), "");
  EXPECT_EQ(desk.Total(), "0");
  EXPECT_EQ(desk.Buttons(), "");
}

TEST(SelectedMessages, TheRemoveButtonWithoutASelectionRemovesNothing) {
  EditorDesk desk;
  desk.Add({"welcome"});
  desk.Do([&] { desk.TheWavWindow().SelectedWavs.OnGotFocus(); });
  desk.Click("RemoveKey");
  EXPECT_EQ(desk.Sequence(), "welcome");
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(SelectedMessages, TheFocusOfAnEmptySequenceEnablesNoRemoveButton) {
  EditorDesk desk;
  desk.Do([&] { desk.TheWavWindow().SelectedWavs.OnGotFocus(); });
  EXPECT_EQ(desk.Buttons(), "");
}

TEST(SelectedMessages, RemoveAllEmptiesSequenceAndTotal) {
  EditorDesk desk;
  desk.Add({"welcome", "gong"});
  desk.SelectEntry(0);
  desk.Click("RemAll_Key");
  EXPECT_EQ(desk.Sequence(), "");
  EXPECT_EQ(desk.Total(), "");
  EXPECT_EQ(desk.Buttons(), "");
  EXPECT_EQ(desk.TheWavWindow().SelectedFiles.ListCount(), 0);
}

/// Deliberate: the total of an opened sequence is the length of its last message only.
TEST(SelectedMessages, AnOpenedSequenceShowsItsLastLengthAndCanFallBelowZero) {
  EditorDesk desk({.Sequences = {{.Messages = "welcome,closing,gong"}}});
  desk.Open("/app/spot.sch");
  EXPECT_EQ(desk.Sequence(), "welcome closing gong");
  EXPECT_EQ(desk.Total(), "0.8");
  EXPECT_EQ(desk.Buttons(), "PrevKey RemAll_Key");
  desk.SelectEntry(0);
  desk.Click("RemoveKey");
  EXPECT_EQ(desk.Total(), "-2.2");
  desk.Add({"closing"});
  EXPECT_EQ(desk.Total(), "-0.2");
}

TEST(SelectedMessages, AnEmptyListOfMessagesIsOneEmptyEntryOfNoLength) {
  EditorDesk desk({.Sequences = {{.Messages = ""}}});
  desk.Open("/app/spot.sch");
  ASSERT_EQ(desk.TheWavWindow().SelectedWavs.ListCount(), 1);
  EXPECT_EQ(desk.TheWavWindow().SelectedWavs.List(0), "");
  EXPECT_EQ(desk.Total(), "0");
}

TEST(SelectedMessages, TheLastNameOfAnOpenedListIsCutAtAHundredCharacters) {
  const std::string name(120, 'x');
  EditorDesk desk({.Sequences = {{.Messages = name + "," + name}, {.File = "b.sch"}}});
  desk.Open("/app/spot.sch");
  EXPECT_EQ(desk.Sequence(), name + " " + std::string(100, 'x'));
}

TEST(SelectedMessages, AFileThatIsNotThereHasNoLengthAndStaysInTheSequence) {
  EditorDesk desk({.Sequences = {{.Messages = "gone,welcome,lost"}}});
  desk.Open("/app/spot.sch");
  EXPECT_EQ(desk.Sequence(), "gone welcome lost");
  EXPECT_EQ(desk.Total(), "0");
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(SelectedMessages, AFurtherPointEndsANameAndTheSequenceLooksForTheShortOne) {
  Desk desk({}, [](SimulatedPc& pc) { pc.Disk.AddWav("/messages/a.b.wav", 5000); });
  desk.Click("mnuSchedule");
  WavWindow& editor = desk.Sys->TheWindows.TheWavWindow;
  EXPECT_EQ(editor.AvailWavs.List(0), "a");
  EXPECT_EQ(editor.AvailableFiles.List(0), "a.b.wav");
  desk.Do([&] { editor.AvailWavs.SetListIndex(0); });
  EXPECT_EQ(editor.SelectedWavs.List(0), "a");
  EXPECT_EQ(editor.lblTotalTime.Caption.Get(), "5");  // of the file that was clicked
  desk.Do([&] { editor.SelectedWavs.SetListIndex(0); });
  desk.Do([&] { editor.RemoveKey.OnClick(); });
  EXPECT_EQ(editor.lblTotalTime.Caption.Get(), "5");  // a.wav is not there
}

TEST(SelectedMessages, ADraggedEntryChangesPlacesWithOneNeighbourAfterTheOther) {
  EditorDesk desk;
  desk.Add({"welcome", "closing", "gong", "alarm"});
  ListBox& list = desk.TheWavWindow().SelectedWavs;
  const auto dragTo = [&](int entry) {
    list.SetListIndex(entry);
    list.OnMouseMove();
  };
  desk.Do([&] {
    list.SetListIndex(0);
    list.OnMouseDown(MouseButton::Left);
    dragTo(0);
  });
  EXPECT_FALSE(desk.Sys->Selected.Drag.DragMoved);
  desk.Do([&] {
    dragTo(1);
    dragTo(2);
  });
  EXPECT_EQ(desk.Sequence(), "closing gong welcome alarm");
  EXPECT_TRUE(desk.Sys->Selected.Drag.DragMoved);
  desk.Do([&] {
    dragTo(1);
    list.OnMouseUp();
  });
  EXPECT_EQ(desk.Sequence(), "closing welcome gong alarm");
  desk.Do([&] { dragTo(3); });
  EXPECT_EQ(desk.Sequence(), "closing welcome gong alarm");
  EXPECT_EQ(desk.TheWavWindow().SelectedFiles.List(0),
            "welcome.wav");  // the shadow stays as it was
}

TEST(SelectedMessages, FiveThousandMessagesAreListed) {
  Desk desk({}, [](SimulatedPc& pc) {
    for (int file = 0; file < 5000; ++file)
      pc.Disk.AddWav("/messages/m" + std::to_string(file) + ".wav", 1000);
  });
  desk.Click("mnuSchedule");
  EXPECT_EQ(desk.Sys->TheWindows.TheWavWindow.AvailWavs.ListCount(), 5002);
}

}  // namespace
}  // namespace marlex
