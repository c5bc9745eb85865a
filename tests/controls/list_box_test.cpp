#include "controls/list_box.h"

#include <gtest/gtest.h>

#include "controls/form.h"

namespace marlex {
namespace {

struct Songs : Form {
  Songs() : Form("songs", "") {
    for (const char* song : {"march", "waltz", "polka"}) lst.AddItem(song);
    lst.OnClick = [this] { ++Clicks; };
  }
  ListBox lst{*this, "lst"};
  int Clicks = 0;
};

TEST(ListBox, HoldsItsEntriesInTheOrderInWhichTheyCame) {
  Songs songs;
  EXPECT_EQ(songs.lst.ListCount(), 3);
  EXPECT_EQ(songs.lst.List(0), "march");
  EXPECT_EQ(songs.lst.List(2), "polka");
}

TEST(ListBox, HasNoSelectionAtFirst) {
  Songs songs;
  EXPECT_EQ(songs.lst.ListIndex(), ListBox::kNoSelection);
  EXPECT_EQ(songs.lst.Text(), "");
}

TEST(ListBox, AMoveOfTheSelectionByCodeIsAClick) {
  Songs songs;
  songs.lst.SetListIndex(1);
  EXPECT_EQ(songs.lst.Text(), "waltz");
  EXPECT_EQ(songs.Clicks, 1);
  songs.lst.SetListIndex(1);
  EXPECT_EQ(songs.Clicks, 1);
  songs.lst.SetListIndex(ListBox::kNoSelection);
  EXPECT_EQ(songs.lst.Text(), "");
  EXPECT_EQ(songs.Clicks, 2);
}

TEST(ListBox, ARemovedEntryTakesTheSelectionWithIt) {
  Songs songs;
  songs.lst.SetListIndex(1);
  songs.lst.RemoveItem(0);
  EXPECT_EQ(songs.lst.ListIndex(), ListBox::kNoSelection);
  EXPECT_EQ(songs.lst.List(0), "waltz");
  EXPECT_EQ(songs.Clicks, 1);
}

TEST(ListBox, ClearingTakesEntriesAndSelectionWithoutAClick) {
  Songs songs;
  songs.lst.SetListIndex(2);
  songs.lst.Clear();
  EXPECT_EQ(songs.lst.ListCount(), 0);
  EXPECT_EQ(songs.lst.ListIndex(), ListBox::kNoSelection);
  EXPECT_EQ(songs.Clicks, 1);
}

TEST(ListBox, AnEntryCanBeReplacedInItsPlace) {
  Songs songs;
  songs.lst.SetListIndex(1);
  songs.lst.SetList(1, "tango");
  EXPECT_EQ(songs.lst.Text(), "tango");
  EXPECT_EQ(songs.lst.ListCount(), 3);
}

TEST(ListBox, AnIndexOutOfRangeIsABrokenRule) {
  Songs songs;
  EXPECT_THROW(songs.lst.List(3), RuntimeFailure);
  EXPECT_THROW(songs.lst.List(-1), RuntimeFailure);
  EXPECT_THROW(songs.lst.SetList(3, ""), RuntimeFailure);
  EXPECT_THROW(songs.lst.RemoveItem(3), RuntimeFailure);
  EXPECT_THROW(songs.lst.SetListIndex(3), RuntimeFailure);
  EXPECT_THROW(songs.lst.SetListIndex(-2), RuntimeFailure);
  EXPECT_EQ(songs.lst.ListIndex(), ListBox::kNoSelection);
}

}  // namespace
}  // namespace marlex
