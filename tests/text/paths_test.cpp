#include "text/paths.h"

#include <gtest/gtest.h>

#include "platform/directories.h"

namespace marlex {
namespace {

TEST(FileNames, ASoundIsNamedWithoutItsDirectoryAndExtension) {
  EXPECT_EQ(SoundName(JoinPath("music", "blue.tram.mp3")), "blue.tram");
  EXPECT_EQ(SoundName("gong.wav"), "gong");
  EXPECT_EQ(SoundName("gong"), "gong");
  EXPECT_EQ(SoundName(""), "");
}

}  // namespace
}  // namespace marlex
