#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/ContentTitle.h"

namespace tessary::CaptureRules {
namespace {

TEST(ContentTitleOnHostileText, TakesLinearTime) {
  for (const std::string_view unit :
       {"#",       "# ", "#\n",        "# \n",   "\n# ",   "\n#",     "\n#\t\v",  "\n# #",    "# a #",
        "#\u3000", "a#", "\n####### ", "\n# \r", "<",      "<title>", "<title> ", "</title>", "<title></title>",
        "&",       "&#", " ",          "\xFF",   "\n#\xFF"}) {
    for (const std::size_t count : {10'000U, 100'000U, 1'000'000U}) {
      std::string text;
      text.reserve(count * unit.size());
      for (std::size_t index = 0; index < count; ++index)
        text += unit;
      for (const std::string_view kind : {"markdown", "html"}) {
        for (const std::string_view tail : {"", " \f\n# Title\n"}) {
          const std::string title = contentTitle(text + std::string(tail), "f", kind);
          EXPECT_FALSE(title.empty()) << unit << " " << count;
        }
      }
    }
  }
}

}  // namespace
}  // namespace tessary::CaptureRules
