#include "call/function_keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "schedule/editor_desk.h"

namespace marlex {
namespace {

constexpr const char* kKeys = "/app/Functionkeys.ini";

/// The mode of the editor that no menu leads to, entered through its procedure.
struct KeysDesk : EditorDesk {
  KeysDesk() {
    Click("mnuExit");
    Do([this] { Main().mnuFKeys.OnClick(); });
  }
  void Choose(int key) {
    Do([this, key] { TheWavWindow().mnuFKey[key].OnClick(); });
  }
  std::string Stored(int key) {
    const std::string section = "Function key " + std::to_string(key);
    return Setting(section, "Schedule", kKeys) + "|" + Setting(section, "Routing", kKeys) + "|" +
           Setting(section, "Description", kKeys);
  }
};

TEST(FunctionKeys, AreOutOfTheOperatorsReach) {
  EditorDesk desk;
  EXPECT_FALSE(desk.Main().mnuFKeys.Enabled);
  EXPECT_FALSE(desk.TheWavWindow().mnuKey.Enabled);
  EXPECT_TRUE(desk.TheWavWindow().mnuKey.Visible);
  EXPECT_EQ(desk.Text("mnuFKey_1") + desk.Text("mnuFKey_12"), "F1F12");
}

TEST(FunctionKeys, CanBeSavedOnceOneIsChosen) {
  KeysDesk desk;
  EXPECT_TRUE(desk.Sys->Editor.FunctionKeyMode);
  EXPECT_FALSE(desk.Enabled("mnuSave"));
  desk.Choose(7);
  EXPECT_TRUE(desk.Enabled("mnuSave"));
  EXPECT_EQ(desk.Sys->Keys.CurrentFunctionKey, 7);
  EXPECT_EQ(desk.TheWavWindow().Caption.Get(), "Function key programming: F7");
}

TEST(FunctionKeys, AreWrittenWithoutACheckAndTheEditorStaysOpen) {
  KeysDesk desk;
  desk.Choose(12);
  desk.Add({"welcome", "gong"});
  desk.Click("cmdZone_0");
  desk.Click("cmdZone_5");
  desk.Pc.Journal.Clear();
  desk.Pc.Journal.Only({"write", "save"});
  desk.Click("mnuSave");
  EXPECT_EQ(desk.Journal(),
            "0 write Functionkeys.ini [Function key 12] Schedule=welcome,gong\n"
            "0 write Functionkeys.ini [Function key 12] Routing=100006\n"
            "0 write Functionkeys.ini [Function key 12] Description=\n");
  desk.Advance(2000);
  EXPECT_TRUE(desk.TheWavWindow().Visible);
  EXPECT_TRUE(desk.Pc.Dialogs.Boxes.empty());
}

TEST(FunctionKeys, KeepNamesAndDescriptionsInQuotes) {
  KeysDesk desk;
  desk.Pc.Disk.AddWav("/messages/'one.wav", 1000);
  desk.Pc.Disk.AddWav("/messages/two'.wav", 1000);
  desk.Pc.Disk.AddFile(kKeys,
                       "[Function key 3]\r\nSchedule=\"'one,two'\"\r\nDescription=\"'old'\"\r\n");
  desk.Choose(3);
  desk.Click("mnuSave");
  EXPECT_EQ(desk.Stored(3), "'one,two'|000000|'old'");
}

TEST(FunctionKeys, WithoutAMessageLoseTheirZonesAndKeepTheirDescription) {
  KeysDesk desk;
  desk.Pc.Disk.AddFile(kKeys,
                       "[Function key 3]\r\nSchedule=gong\r\nRouting=120000\r\n"
                       "Description=evacuation\r\n");
  desk.Choose(3);
  desk.Click("RemAll_Key");
  desk.Click("mnuSave");
  EXPECT_EQ(desk.Pc.Disk.Read(kKeys),
            "[Function key 3]\r\nSchedule=\r\nRouting=\r\nDescription=evacuation\r\n");
}

TEST(FunctionKeys, AreReadIntoTheEditor) {
  KeysDesk desk;
  desk.Pc.Disk.AddFile(kKeys,
                       "[Function key 1]\r\nSchedule=gong,closing\r\nRouting=103056\r\n"
                       "Description=doors\r\n");
  desk.Choose(1);
  EXPECT_EQ(desk.Sequence(), "gong closing");
  EXPECT_EQ(desk.Zones(), "1-1-11");
  EXPECT_EQ(desk.TheWavWindow().txtDescription.Text.Get(), "doors");
  EXPECT_FALSE(desk.Visible("txtDescription"));
}

/// Deliberate: what is on the screen is saved with the new key.
TEST(FunctionKeys, OneThatWasNeverProgrammedKeepsWhatIsOnTheScreen) {
  KeysDesk desk;
  desk.Pc.Disk.AddFile(kKeys,
                       "[Function key 1]\r\nSchedule=gong\r\nRouting=120000\r\n"
                       "Description=doors\r\n");
  desk.Choose(1);
  desk.Choose(2);
  EXPECT_EQ(desk.Sequence() + desk.Zones(), "gong11----");
  EXPECT_EQ(desk.TheWavWindow().txtDescription.Text.Get(), "");
  desk.Click("mnuSave");
  EXPECT_EQ(desk.Stored(2), "gong|120000|");
  EXPECT_EQ(desk.Stored(1), "gong|120000|doors");
}

TEST(FunctionKeys, OneWithTooFewZonesIsNotChosenAndChangesNothing) {
  KeysDesk desk;
  desk.Pc.Disk.AddFile(kKeys,
                       "[Function key 1]\r\nSchedule=gong\r\nRouting=120000\r\n"
                       "[Function key 2]\r\nSchedule=closing\r\nRouting=12\r\n");
  desk.Choose(1);
  desk.Choose(2);
  desk.Advance(0);
  ASSERT_EQ(desk.Pc.Dialogs.Boxes.size(), 1U);
  EXPECT_THAT(desk.Pc.Dialogs.Boxes[0].Body,
              testing::HasSubstr("Functionkeys.ini: Function key 2: Routing: "));
  EXPECT_EQ(desk.Sys->Keys.CurrentFunctionKey, 1);
  EXPECT_EQ(desk.Sequence() + desk.Zones(), "gong11----");
}

TEST(FunctionKeys, ThatCannotBeWrittenAreReported) {
  KeysDesk desk;
  const std::string old = "[Function key 4]\r\nSchedule=gong\r\nRouting=120000\r\n";
  desk.Pc.Disk.AddFile(kKeys, old);
  desk.Pc.Disk.FailWrites(kKeys);
  desk.Choose(4);
  desk.Add({"welcome"});
  desk.Click("mnuSave");
  desk.Advance(2000);
  EXPECT_EQ(desk.LastBox(), "Error: The file cannot be saved: /app/Functionkeys.ini");
  EXPECT_EQ(desk.Pc.Dialogs.Boxes.back().Icon, BoxIcon::Critical);
  EXPECT_EQ(desk.Pc.Disk.Read(kKeys), old);
  EXPECT_TRUE(desk.TheWavWindow().Visible);
  EXPECT_EQ(desk.Sequence() + desk.Zones(), "gong welcome11----");
  desk.Pc.Disk.Heal(kKeys);
  desk.Click("mnuSave");
  EXPECT_EQ(desk.Stored(4), "gong,welcome|120000|");
}

TEST(FunctionKeys, TheMenuOfSequencesLeavesTheirMode) {
  KeysDesk desk;
  desk.Click("mnuExit");
  desk.Click("mnuSchedule");
  EXPECT_FALSE(desk.Sys->Editor.FunctionKeyMode);
  EXPECT_TRUE(desk.Enabled("mnuSave"));
}

TEST(FunctionKeys, KeepTheLineEndsAndTheOtherKeysOfTheirFile) {
  for (const std::string lineEnd : {"\r\n", "\n", "\r"}) {
    const auto file = [&lineEnd](const std::string& schedule, const std::string& zones) {
      std::string text;
      for (const std::string& line :
           {std::string("; by hand"), std::string("[FUNCTION KEY 1]"), "routing=" + zones,
            "schedule=" + schedule, std::string("Description=doors"), std::string("Colour=red"),
            std::string("[Function key 10]"), std::string("Schedule=closing")}) {
        text += line + lineEnd;
      }
      return text;
    };
    KeysDesk desk;
    desk.Pc.Disk.AddFile(kKeys, file("gong", "120000"));
    desk.Choose(1);
    EXPECT_EQ(desk.Sequence() + desk.Zones(), "gong11----");
    desk.Add({"welcome"});
    desk.Click("cmdZone_1");
    desk.Click("mnuSave");
    EXPECT_EQ(desk.Pc.Disk.Read(kKeys), file("gong,welcome", "100000"));
  }
}

}  // namespace
}  // namespace marlex
