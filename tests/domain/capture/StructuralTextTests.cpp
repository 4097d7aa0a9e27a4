#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryDomain/capture/PythonText.h"
#include "TessaryDomain/capture/StructuralText.h"
#include "TessaryPlatform/text/UTF8.h"

#include "ExpressionTexts.h"

namespace tessary {
namespace {

TEST(StructuralText, JoinsLinesWithLineFeeds) {
  EXPECT_EQ(structuralText("a\r\nb\rc\u2028d\n"), "a\nb\nc\nd");
  EXPECT_EQ(structuralText("a\n\nb"), "a\n\nb");
  EXPECT_EQ(structuralText("\n"), "");
  EXPECT_EQ(structuralText("\n\n"), "\n");
  EXPECT_EQ(structuralText(""), "");
}

TEST(StructuralText, DropsFencesAndWhatTheyHold) {
  EXPECT_EQ(structuralText("a\n```\nb\n```\nc"), "a\nc");
  EXPECT_EQ(structuralText("a\n~~~ text ~~~\nb\n~~~\nc"), "a\nc")
      << "what stands behind the opening run does not matter";
  EXPECT_EQ(structuralText("```a`b\nx\n```\nc"), "c");
  EXPECT_EQ(structuralText("```\n```"), "");
}

TEST(StructuralText, TakesAnOpenFenceToTheEnd) {
  EXPECT_EQ(structuralText("a\n```\nb\nc\n"), "a");
}

TEST(StructuralText, ClosesAFenceByTheSameCharacterAtLeastAsOften) {
  EXPECT_EQ(structuralText("~~~~\n~~~\nx"), "");
  EXPECT_EQ(structuralText("~~~~\n````\nx"), "");
  EXPECT_EQ(structuralText("~~~~\n~~~~\nx"), "x");
  EXPECT_EQ(structuralText("~~~~\n~~~~~\nx"), "x");
  EXPECT_EQ(structuralText("```\n``` a\nb\n```\nx"), "x") << "nothing may stand behind the closing run";
  EXPECT_EQ(structuralText("```\n```` \t\u00A0\nx"), "x") << "but white space";
  EXPECT_EQ(structuralText("```\n```~\nb"), "");
}

TEST(StructuralText, KnowsAFenceWithUpToThreeBlanksBefore) {
  EXPECT_EQ(structuralText("   ```\na\n   ```\nx"), "x");
  EXPECT_EQ(structuralText("    ```\na"), "    ```\na");
  EXPECT_EQ(structuralText("\t \t~~~\na\n\t\t\t~~~\nx"), "x") << "a tab counts as one";
  EXPECT_EQ(structuralText("\t\t\t\t~~~\na"), "\t\t\t\t~~~\na");
  EXPECT_EQ(structuralText("\u00A0```\na"), "\u00A0```\na");
  EXPECT_EQ(structuralText("```\n    ```\na\n```\nx"), "x") << "the fourth blank keeps it open";
}

TEST(StructuralText, NeedsThreeOfACharacterForAFence) {
  EXPECT_EQ(structuralText("``\na"), "``\na");
  EXPECT_EQ(structuralText("~~`\na"), "~~`\na");
  EXPECT_EQ(structuralText("x```\na"), "x```\na");
  EXPECT_EQ(structuralText("> ```\na"), "> ```\na");
}

// The rule told step by step, on scalars.

struct Marker {
  std::u32string run;
  std::size_t behind = 0;
};

Marker slowMarker(const std::u32string& line) {
  std::size_t index = 0;
  for (int blanks = 0; blanks < 3 && index < line.size() && (line[index] == U' ' || line[index] == U'\t'); ++blanks)
    ++index;
  for (const char32_t character : {U'~', U'`'}) {
    std::size_t end = index;
    while (end < line.size() && line[end] == character)
      ++end;
    if (end - index >= 3) return {.run = line.substr(index, end - index), .behind = end};
  }
  return {};
}

std::string slowStructure(std::string_view text) {
  std::string joined;
  bool isFirst = true;
  std::u32string open;
  for (const std::string_view view : PythonText::splitlines(text)) {
    const std::u32string line = toScalars(view);
    const Marker marker = slowMarker(line);
    if (!open.empty()) {
      if (!marker.run.empty() && marker.run[0] == open[0] && marker.run.size() >= open.size() &&
          PythonText::strip(toUTF8(line.substr(marker.behind))).empty())
        open.clear();
      continue;
    }
    if (!marker.run.empty()) {
      open = marker.run;
      continue;
    }
    if (!isFirst) joined += '\n';
    joined += view;
    isFirst = false;
  }
  return joined;
}

TEST(StructuralText, IsThatOfTheSlowRuleForEveryShortText) {
  forEveryText({"```", "~", "~~~", "\n", " ", "\t", "a"}, 6,
               [](const std::string& text) { ASSERT_EQ(structuralText(text), slowStructure(text)) << text; });
}

TEST(StructuralText, IsThatOfTheSlowRuleForRandomTexts) {
  std::mt19937 random(20260322);
  const std::vector<std::string> units = {"```", "\n```", "````", "~~~",   "\n~~~",  "~~~~\n", "\n",   "\n", "\r\n",
                                          " ",   "\t",    "a",    "# b\n", "\u2028", "\u00A0", "\xFF", "`",  "~"};
  for (int round = 0; round < 20000; ++round) {
    const std::string text = randomText(units, random() % 30, random);
    ASSERT_EQ(structuralText(text), slowStructure(text)) << "round " << round << ": " << testing::PrintToString(text);
  }
}

}  // namespace
}  // namespace tessary
