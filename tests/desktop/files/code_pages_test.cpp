#include "text/code_pages.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <QChar>
#include <string>

#include "text/text_case.h"

namespace marlex::test {
namespace {

/// The text as the system's own conversion reads it; U+FFFD where the conversion refuses.
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

/// The character as a text.
std::string Utf8(char32_t code) {
  std::string text;
  AppendUtf8(text, code);
  return text;
}

TEST(CodePages, TheirLettersAreComparedAsTheUnicodeStandardFoldsThem) {
  for (int page = 0; page < 6; ++page) {
    for (int byte = 0; byte <= 0xFF; ++byte) {
      const std::string letter = InUtf8(std::string(1, static_cast<char>(byte)), CodePage(page));
      const char32_t code = FirstCharacter(letter).Code;
      if (code == U'µ') continue;  // a sign that folds to a letter of another alphabet
      for (const char32_t same :
           {QChar::toCaseFolded(code), QChar::toUpper(code), QChar::toLower(code)}) {
        const bool fold = QChar::toCaseFolded(same) == QChar::toCaseFolded(code);
        EXPECT_EQ(SameButForCase(letter, Utf8(same)), fold) << letter << Utf8(same);
      }
    }
  }
}

TEST(CodePages, NoOtherLettersCountAsTheSame) {
  for (char32_t code = 0x20; code < 0x530; ++code) {
    const char32_t folded = FirstFolded(Utf8(code)).Code;
    EXPECT_TRUE(folded == code || folded == QChar::toCaseFolded(code)) << Utf8(code);
  }
}

}  // namespace
}  // namespace marlex::test
