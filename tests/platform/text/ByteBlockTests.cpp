#include <cstddef>
#include <string>

#include <gtest/gtest.h>

#include "TessaryPlatform/text/ByteBlock.h"

namespace tessary {
namespace {

TEST(ByteBlock, FindsTheFirstByteOfAnyValueAtEveryPlace) {
  constexpr std::size_t size = sizeof(ByteBlock);
  EXPECT_EQ(firstByte(byteBlockAt(std::string(size, '\0').data())), size);
  EXPECT_FALSE(hasByte(byteBlockAt(std::string(size, '\0').data())));
  for (std::size_t first = 0; first < size; ++first) {
    for (std::size_t other = first; other < size; ++other) {
      for (const char byte : {'\x01', '\x80', '\xFF'}) {
        // One byte in front, so that the block is not aligned.
        std::string text(1 + size, '\0');
        text[1 + first] = byte;
        text[1 + other] = byte;
        EXPECT_EQ(firstByte(byteBlockAt(text.data() + 1)), first);
        EXPECT_TRUE(hasByte(byteBlockAt(text.data() + 1)));
      }
    }
  }
}

TEST(ByteBlock, ComparesByteByByte) {
  const std::string text = "abcdefghijklmnop";
  EXPECT_EQ(firstByte(byteBlockAt(text.data()) == 'k'), 10U);
  EXPECT_EQ(firstByte(byteBlockAt(text.data()) == 'q'), 16U);
  EXPECT_FALSE(hasByte(byteBlockAt(text.data()) < 'a'));
}

}  // namespace
}  // namespace tessary
