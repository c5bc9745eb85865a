#include "platform/code_pages.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <string>

namespace marlex::test {
namespace {

/// The text as the system's own conversion reads it; U+FFFD where it refuses.
std::string BySystem(const std::string& page, std::string text) {
  const iconv_t conversion = ::iconv_open("UTF-8", page.c_str());
  if (conversion == iconv_t(-1)) return "no such page: " + page;
  char room[16];
  char* from = text.data();
  char* to = room;
  std::size_t left = text.size();
  std::size_t free = sizeof room;
  const bool read = ::iconv(conversion, &from, &left, &to, &free) != std::size_t(-1) &&
                    ::iconv(conversion, nullptr, nullptr, &to, &free) != std::size_t(-1);
  ::iconv_close(conversion);
  return read ? std::string(room, to) : "\uFFFD";
}

TEST(CodePages, AreThoseOfTheSystem) {
  for (int page = 0; page < 6; ++page) {
    for (int byte = 0x80; byte <= 0xFF; ++byte) {
      const std::string text(1, static_cast<char>(byte));
      EXPECT_EQ(InUtf8(text, static_cast<CodePage>(page)),
                BySystem("CP" + std::to_string(1250 + page), text))
          << page << " " << byte;
    }
  }
}

}  // namespace
}  // namespace marlex::test
