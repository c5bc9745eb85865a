#include "text/code_pages.h"

#include <gtest/gtest.h>

namespace marlex {
namespace {

TEST(CodePages, ReadWhatIsNoUtf8AndLeaveTheRestAlone) {
  EXPECT_EQ(InUtf8("Caf\xE9 \x80", CodePage::WestEuropean), "Café €");
  EXPECT_EQ(InUtf8("\xD5\xF5", CodePage::CentralEuropean), "Őő");
  EXPECT_EQ(InUtf8("\xFF\xFE", CodePage::Turkish), "ÿş");
  EXPECT_EQ(InUtf8("Café", CodePage::Cyrillic), "Café");
  EXPECT_EQ(InUtf8("", CodePage::Greek), "");
  EXPECT_EQ(InUtf8("a\x81z", CodePage::WestEuropean), "a\uFFFDz");
}

TEST(CodePages, ANameOnTheDiskIsTheSameInAnyOfThemAndInAnyCase) {
  EXPECT_TRUE(NamesTheSame("\xCF\xE5\xF1\xED\xFF.MP3", "песня.mp3"));
  EXPECT_TRUE(NamesTheSame("Caf\xE9", "CAFÉ"));
  EXPECT_TRUE(NamesTheSame("Café", "CAFÉ"));
  EXPECT_FALSE(NamesTheSame("Cafe", "Café"));
  EXPECT_FALSE(NamesTheSame("Caf\xE9", "Cafe"));
}

TEST(CodePages, Utf16GoesThereAndBackInBothOrders) {
  const std::string text = "a€я😀\n";
  for (const bool bigEndian : {false, true})
    EXPECT_EQ(Utf8FromUtf16(Utf16FromUtf8(text, bigEndian), bigEndian), text);
  EXPECT_EQ(Utf16FromUtf8("\xFF", true), "\xFF\xFD");
}

TEST(CodePages, BrokenUtf16IsNoText) {
  for (const std::string& bytes : {std::string("a"), std::string("\xD8\x3D", 2),
                                   std::string("\xD8\x3D\0a", 4), std::string("\xDE\0\0a", 4)})
    EXPECT_EQ(Utf8FromUtf16(bytes, true), std::nullopt);
}

}  // namespace
}  // namespace marlex
