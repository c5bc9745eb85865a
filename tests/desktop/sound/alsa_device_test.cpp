#include "desktop/sound/alsa_device.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "desktop/sound/private_server.h"

namespace marlex {
namespace {

/// A block of old sound, into which a device reads.
std::vector<float> OldSound(int frames) {
  return std::vector<float>(std::size_t(frames) * 2, 0.7f);
}

TEST(AlsaDevice, WhatIsMissingOfAReadingIsSilence) {
  const PrivateServer server;
  const auto device = AlsaDevice::Open("pulse", SND_PCM_STREAM_CAPTURE, 10, 200);
  ASSERT_TRUE(device);
  ASSERT_TRUE(device->Start());
  const int waiting = device->Await(5000);
  ASSERT_GT(waiting, 0);
  const int frames = 10 * device->BufferFrames();
  std::vector<float> sound = OldSound(frames);
  EXPECT_TRUE(device->Read(sound.data(), frames)) << "there are fewer than that";
  EXPECT_EQ(std::count(sound.begin(), sound.end(), 0.7f), 0);
  EXPECT_EQ(sound.back(), 0);
}

TEST(AlsaDevice, AReadingThatFindsNothingIsSilence) {
  const PrivateServer server;
  const auto device = AlsaDevice::Open("pulse", SND_PCM_STREAM_CAPTURE, 10, 200);
  ASSERT_TRUE(device);
  std::vector<float> sound = OldSound(100);
  EXPECT_TRUE(device->Read(sound.data(), 100));
  EXPECT_EQ(std::count(sound.begin(), sound.end(), 0.0f), 200);
}

}  // namespace
}  // namespace marlex
