// Linear time on a mebibyte of every unit from which a scan could start anew again and again: a quadratic one would run
// into the limit of the test.

#include <cstddef>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/Headings.h"

#include "ExpressionTexts.h"

namespace tessary {
namespace {

/// Where the last heading ends. Every heading must stand behind the one before.
std::size_t lastHeadingEnd(std::string_view text) {
  std::size_t position = 0;
  bool isInOrder = true;
  for (const std::string_view heading : Headings::matches(text)) {
    const auto start = static_cast<std::size_t>(heading.data() - text.data());
    isInOrder &= position < start;
    position = start + heading.size();
  }
  EXPECT_TRUE(isInOrder);
  return position;
}

class HostileHeadings : public testing::TestWithParam<const char*> {};

TEST_P(HostileHeadings, AreFoundInLinearTime) {
  const std::string run = repeated(GetParam(), mebibyte);
  for (const std::string before : {"", "# ", "# a", "#\n"}) {
    EXPECT_LE(lastHeadingEnd(before + run), before.size() + run.size());
    EXPECT_LE(lastHeadingEnd(before + run + "x"), before.size() + run.size() + 1);
    const std::string closed = before + run + "\n# z";
    EXPECT_EQ(lastHeadingEnd(closed), closed.size()) << "whatever stands before";
  }
}

INSTANTIATE_TEST_SUITE_P(Units, HostileHeadings,
                         testing::Values("#", "# ", "#\n", "\n#", "# #\n", "# a\n", "# a\n#", "#\n\n", "# a \n", "\n",
                                         " ", "a", "# a # ", "###### \n", "#######\n", "# \u2003", "\u2003\n#", "# a\r",
                                         "\xE2\x80"));

}  // namespace
}  // namespace tessary
