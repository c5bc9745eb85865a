#include "link/zone_routing.h"

#include <gtest/gtest.h>

#include "link/link_desk.h"

namespace marlex {
namespace {

/// Which buttons of an array are down, "1" for each.
std::string Down(ControlArray<ToggleButton>& buttons) {
  std::string down;
  for (int zone = 0; zone < kZones; ++zone) down += buttons[zone].Value ? '1' : '0';
  return down;
}

std::string MusicRoutingOnDisk(Desk& desk) { return desk.Setting("Routing", "Music routing"); }
std::string CallRoutingOnDisk(Desk& desk) { return desk.Setting("Routing", "Call routing"); }

TEST(ZoneRouting, TheStartPutsTheMusicsZonesOnButtonsAndLabels) {
  LinkDesk desk({.MusicRouting = "101001"});
  EXPECT_EQ(Down(desk.Main().cmdMusicZones), "101001");
  EXPECT_EQ(desk.LitZones(), "101001");
  EXPECT_EQ(desk.Main().lblCurrentZone[1].BackColor, kButtonFace);
  EXPECT_FALSE(desk.Sys->Routing.RoutingRestoreGuard);
}

TEST(ZoneRouting, TheStartStoresTheMusicsZonesInSixCharacters) {
  const std::vector<std::pair<std::string, std::string>> values = {
      {"11", "110000"},   {"", "000000"},        {"000000", "000000"},
      {"1x21", "100100"}, {"0000001", "000000"}, {"111111", "111111"}};
  for (const auto& [value, stored] : values) {
    LinkDesk desk({.MusicRouting = value});
    EXPECT_EQ(desk.LitZones(), stored) << value;
    EXPECT_EQ(MusicRoutingOnDisk(desk), stored) << value;
    EXPECT_EQ(desk.Values().MusicRouting, stored) << value;
  }
}

TEST(ZoneRouting, ButtonsThatTheProgramSetsDoNotStoreHalfOfTheZones) {
  LinkDesk desk;
  desk.Pc.Journal.Only({"write"});
  desk.Pc.Journal.Clear();
  desk.Do([&] {
    desk.Values().MusicRouting = "001111";
    desk.Sys->Routing.ApplyMusicRouting();
  });
  EXPECT_EQ(desk.Journal(), "0 write Tolvo.ini [Routing] Music routing=001111\n");
  EXPECT_EQ(desk.LitZones(), "001111");
}

TEST(ZoneRouting, AMusicZoneButtonPaintsItsLabelAndStoresAtOnce) {
  LinkDesk desk;
  desk.Click("cmdMusicZones_5");
  EXPECT_EQ(desk.LitZones(), "110001");
  EXPECT_EQ(MusicRoutingOnDisk(desk), "110001");
  desk.Click("cmdMusicZones_0");
  EXPECT_EQ(desk.LitZones(), "010001");
  EXPECT_EQ(MusicRoutingOnDisk(desk), "010001");
  desk.Advance(1000);
  EXPECT_EQ(desk.Journal(), "");
}

TEST(ZoneRouting, WhileMusicPlaysAMusicZoneButtonChangesTheByteWithin200Ms) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Click("cmdMusicZones_5");
  desk.Advance(1000);
  EXPECT_EQ(desk.Journal(), "200 send 99\n");
}

TEST(ZoneRouting, AMusicZoneButtonPaintsOverThePatternOfACall) {
  LinkDesk desk;
  desk.Press("cmdCall");
  desk.Click("cmdMusicZones_4");
  EXPECT_EQ(desk.LitZones(), "001010");
  EXPECT_EQ(MusicRoutingOnDisk(desk), "110010");
  desk.Advance(1000);
  EXPECT_EQ(desk.Journal(), "200 send 84\n");
}

TEST(ZoneRouting, TheStartPutsTheCallsZonesOnTheirButtonsAndNotOnTheLabels) {
  LinkDesk desk({.MusicRouting = "110000", .CallRouting = "001011"});
  EXPECT_EQ(Down(desk.Main().cmdCallZone), "001011");
  EXPECT_EQ(desk.LitZones(), "110000");
  EXPECT_TRUE(desk.Enabled("cmdCall"));
}

TEST(ZoneRouting, WithoutCallZonesTheCallButtonIsOffUntilAZoneIsChosen) {
  for (const std::string value : {"", "000000"}) {
    LinkDesk desk({.CallRouting = value});
    EXPECT_FALSE(desk.Enabled("cmdCall")) << value;
    EXPECT_EQ(CallRoutingOnDisk(desk), value);
    desk.Click("cmdCallZone_3");
    EXPECT_TRUE(desk.Enabled("cmdCall"));
    EXPECT_EQ(CallRoutingOnDisk(desk), "000100");
    EXPECT_EQ(desk.Values().CallRouting, "000100");
  }
}

TEST(ZoneRouting, AnAbsentCallRoutingCountsAsNoZones) {
  LinkDesk desk({}, [](SimulatedPc& pc) {
    std::string text = *pc.Disk.Read(Desk::kIni);
    const auto line = text.find("Call routing");
    text.erase(line, text.find('\n', line) + 1 - line);
    pc.Disk.AddFile(Desk::kIni, text);
  });
  EXPECT_FALSE(desk.Enabled("cmdCall"));
  desk.Click("cmdCallZone_0");
  EXPECT_TRUE(desk.Enabled("cmdCall"));
  EXPECT_EQ(CallRoutingOnDisk(desk), "100000");
}

TEST(ZoneRouting, TheLastCallZoneSwitchedOffTurnsTheCallButtonOffAtOnce) {
  LinkDesk desk({.CallRouting = "001000"});
  desk.Click("cmdCallZone_2");
  EXPECT_FALSE(desk.Enabled("cmdCall"));
  EXPECT_EQ(CallRoutingOnDisk(desk), "000000");
}

TEST(ZoneRouting, ACallZoneButtonEnablesTheCallButtonWhateverHadTurnedItOff) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Status(128);
  EXPECT_FALSE(desk.Enabled("cmdCall"));
  desk.Click("cmdCallZone_0");
  EXPECT_TRUE(desk.Enabled("cmdCall"));
}

TEST(ZoneRouting, TheStartStoresNoCallZones) {
  LinkDesk desk({.CallRouting = "11"}, [](SimulatedPc& pc) { pc.Journal.Unmute("write"); });
  EXPECT_EQ(CallRoutingOnDisk(desk), "11");
  EXPECT_EQ(Down(desk.Main().cmdCallZone), "110000");
}

TEST(ZoneRouting, ACallZoneButtonLeavesLabelsAndLineAlone) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Click("cmdCallZone_5");
  desk.Advance(1000);
  EXPECT_EQ(desk.LitZones(), "110000");
  EXPECT_EQ(desk.Journal(), "");
}

TEST(ZoneRouting, ACallZoneButtonInACallWorksFromTheNextCallOn) {
  LinkDesk desk({.CallRouting = "001000"});
  desk.Press("cmdCall");
  desk.Advance(1000);
  desk.Click("cmdCallZone_5");
  desk.Advance(1000);
  EXPECT_EQ(desk.LitZones(), "001000");
  EXPECT_EQ(CallRoutingOnDisk(desk), "001001");
  EXPECT_EQ(desk.Journal(), "200 send 68\n");
  desk.Release("cmdCall");
  desk.Press("cmdCall");
  desk.Advance(1000);
  EXPECT_EQ(desk.LitZones(), "001001");
  EXPECT_EQ(desk.Journal(), "200 send 68\n2000 send 0\n2200 send 100\n");
}

TEST(ZoneRouting, TheZonesOfARowAreOnWhereTheDigitIsThatOfItsPlace) {
  const std::vector<std::pair<std::string, std::string>> zones = {
      {"123456", "111111"}, {"100000", "100000"}, {"003006", "001001"}, {"111111", "100000"},
      {"", "000000"},       {"12", "110000"},     {"023450", "011110"}, {"1234567", "111111"}};
  for (const auto& row : zones) {
    LinkDesk desk;
    desk.Do([&] { desk.Sys->Routing.ShowMessageZones(row.first); });
    EXPECT_EQ(desk.LitZones(), row.second) << row.first;
  }
}

TEST(ZoneRouting, WithTheOtherAmplifierShownZonesMakeNoRequest) {
  LinkDesk desk({.Router = false});
  desk.Do([&] {
    desk.Sys->Routing.ShowCallZones();
    desk.Sys->Routing.ShowMessageZones("123456");
  });
  EXPECT_EQ(desk.LitZones(), "111111");
  EXPECT_FALSE(desk.Players().tmrIODelay.Enabled);
}

TEST(ZoneRouting, WithTheOtherAmplifierTheZonesStayInTheFile) {
  LinkDesk desk({.Router = false, .MusicRouting = "11", .CallRouting = "01"});
  EXPECT_FALSE(desk.Main().frRouting.Visible);
  EXPECT_TRUE(desk.Main().frCall.Visible);
  EXPECT_EQ(MusicRoutingOnDisk(desk), "110000");
  EXPECT_EQ(CallRoutingOnDisk(desk), "01");
}

TEST(ZoneRouting, TheLabelsFollowWhatThePcFeeds) {
  LinkDesk desk({.Sequences = {{.Zones = "003000"}}});
  EXPECT_EQ(desk.LitZones(), "110000");
  desk.PlayMusic();
  EXPECT_EQ(desk.LitZones(), "110000");
  desk.RunTo(12, 1, 2);
  EXPECT_EQ(desk.LitZones(), "001000");
  desk.RunTo(12, 1, 10);
  EXPECT_EQ(desk.LitZones(), "110000");
}

TEST(ZoneRouting, TheNamesOfTheZonesAreOnTheirLabels) {
  LinkDesk desk;
  EXPECT_EQ(desk.Main().lblZoneName[0].Caption.Get(), "Hall");
  EXPECT_EQ(desk.Main().lblZoneName[1].Caption.Get(), "Yard");
  EXPECT_EQ(desk.Main().lblZoneName[5].Caption.Get(), "");
}

TEST(ZoneRouting, AFullDiskCostsNoZone) {
  LinkDesk desk;
  desk.PlayMusic();
  desk.Pc.Disk.FailWrites(Desk::kIni);
  desk.Click("cmdMusicZones_5");
  desk.Advance(1000);
  EXPECT_EQ(desk.Journal(), "200 send 99\n");
  EXPECT_EQ(desk.LitZones(), "110001");
  EXPECT_EQ(MusicRoutingOnDisk(desk), "110000");
}

}  // namespace
}  // namespace marlex
