#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>

#include "i18n/string_blocks.h"
#include "places.h"

namespace marlex {
namespace {

/// What the first column of the tables under a heading of the manual has in quotes.
std::vector<std::string> QuotedUnder(const std::string& heading) {
  std::ifstream manual(MARLEX_SOURCE_DIR "/docs/manual.md");
  std::vector<std::string> quoted;
  const std::regex quotes("\"([^\"]+)\"");
  bool isInside = false;
  for (std::string line; std::getline(manual, line);) {
    if (line.starts_with('#')) isInside = line == heading;
    if (!isInside || !line.starts_with('|')) continue;
    const std::string cell = line.substr(1, line.find('|', 1) - 1);
    for (std::sregex_iterator at(cell.begin(), cell.end(), quotes), end; at != end; ++at)
      quoted.push_back((*at)[1]);
  }
  return quoted;
}

bool IsShown(const std::string& text) {
  const auto strings = StringsOf("English");
  return std::any_of(strings.begin(), strings.end(), [&](const auto& string) {
    return std::string(string.Text).find(text) != std::string::npos;
  });
}

TEST(Manual, ExplainsTextsThatTheProgramShows) {
  const std::vector<std::string> quoted = QuotedUnder("## If something is silent");
  EXPECT_GT(quoted.size(), 9u);
  for (const std::string& text : quoted) EXPECT_TRUE(IsShown(text)) << text;
}

}  // namespace
}  // namespace marlex
