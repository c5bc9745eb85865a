#include "desktop/serial/marked_bytes.h"

#include <gtest/gtest.h>

namespace marlex {
namespace {

std::string Bytes(std::initializer_list<int> values) {
  std::string bytes;
  for (const int value : values) bytes += static_cast<char>(value);
  return bytes;
}

TEST(MarkedBytes, ADoubledFFIsOne) {
  MarkedBytes marks;
  EXPECT_EQ(marks.Take(Bytes({0x40, 0xFF, 0xFF, 0x80, 0xFF, 0xFF, 0xFF, 0xFF})),
            Bytes({0x40, 0xFF, 0x80, 0xFF, 0xFF}));
}

TEST(MarkedBytes, AByteWithAnErrorIsDroppedWhateverItIs) {
  for (const int spoilt : {0x00, 0x01, 0x40, 0x80, 0xC0, 0xFF}) {
    MarkedBytes marks;
    EXPECT_EQ(marks.Take(Bytes({0xC0, 0xFF, 0x00, spoilt, 0x80})), Bytes({0xC0, 0x80})) << spoilt;
  }
}

TEST(MarkedBytes, AZeroOnItsOwnIsAByte) {
  MarkedBytes marks;
  EXPECT_EQ(marks.Take(Bytes({0x00, 0xFF, 0xFF, 0x00, 0x00})), Bytes({0x00, 0xFF, 0x00, 0x00}));
}

TEST(MarkedBytes, AMarkMayBeCutAnywhere) {
  const std::string read = Bytes({0x40, 0xFF, 0x00, 0x00, 0xFF, 0xFF, 0xFF, 0x00, 0xFF, 0x80});
  for (std::size_t cut = 0; cut <= read.size(); ++cut) {
    MarkedBytes marks;
    const std::string first = marks.Take(read.substr(0, cut));
    EXPECT_EQ(first + marks.Take(read.substr(cut)), Bytes({0x40, 0xFF, 0x80})) << cut;
  }
}

}  // namespace
}  // namespace marlex
