#include "state/profile_store.h"

#include <gtest/gtest.h>

#include "desk/desk.h"

namespace marlex {
namespace {

using Files = std::vector<std::string>;

TEST(ProfileStore, ForgetsAFileThatFailedWhateverTheCaseOfItsEnding) {
  Desk desk;
  SettingsStore& store = desk.Sys->Store;
  desk.Pc.Disk.FailWrites("/stick");
  desk.Pc.Disk.AddDirectory("/stick");
  for (const char* file : {"/stick/NIGHT.LST", "/stick/Night.Sch"})
    EXPECT_FALSE(store.RebuildProfile({{"Songs", "Song1", "march"}}, file)) << file;
  EXPECT_EQ(store.NotWritten(), (Files{"/stick/NIGHT.LST", "/stick/Night.Sch"}));
  EXPECT_TRUE(store.RebuildProfile({{"Songs", "Song1", "march"}}, "/app/night.lst"));
  EXPECT_EQ(store.NotWritten(), Files{"/stick/Night.Sch"});
  EXPECT_TRUE(store.RebuildProfile({{"Songs", "Song1", "march"}}, "/app/NIGHT.SCH"));
  EXPECT_EQ(store.NotWritten(), Files());
}

}  // namespace
}  // namespace marlex
