#include <cstddef>
#include <expected>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryPlatform/json/JSONSyntax.h"
#include "TessaryRenderer/RendererFailure.h"
#include "TessaryRenderer/RendererLimits.h"
#include "TessaryRenderer/RequestDoor.h"
#include "support/Texts.h"

namespace tessary {
namespace {

using testing::repeated;

using Check = std::expected<void, RendererFailure>;

const Check passes;
const Check invalid = std::unexpected(RendererFailures::other);
const Check notObject = std::unexpected(RendererFailures::requestNotObject);
const Check tooLarge = std::unexpected(RendererFailures::sourceTooLarge);

std::string withSource(std::string_view spelled) {
  return R"({"operation":"render","text":")" + std::string(spelled) + "\"}";
}

TEST(RequestDoor, TakesJSONAsTheStandardDefinesItAndNothingElse) {
  for (const char* request : {"{}", " \t\r\n{ } \n", R"({"a":[1,-0,1.5e-3,true,false,null,"\u00e9\/"]})",
                              R"({"a":{"b":{}},"":[[]]})", R"({"a":1,"a":2})", "{\"a\":\"\xC3\xA9\x7F\"}"})
    EXPECT_EQ(checkRequest(request), passes) << request;
  for (const char* request : {"",
                              " ",
                              "{",
                              "}",
                              "{}}",
                              "{}{}",
                              "{} x",
                              "{\"a\"}",
                              "{\"a\":}",
                              "{\"a\":1,}",
                              "{,}",
                              "{a:1}",
                              "{'a':1}",
                              "{\"a\":01}",
                              "{\"a\":1.}",
                              "{\"a\":.5}",
                              "{\"a\":+1}",
                              "{\"a\":1e}",
                              "{\"a\":NaN}",
                              "{\"a\":Infinity}",
                              "{\"a\":True}",
                              "{\"a\":nul}",
                              "{\"a\":undefined}",
                              "{\"a\":[1,]}",
                              "{\"a\":[,1]}",
                              "{\"a\":\"\t\"}",
                              "{\"a\":\"\n\"}",
                              R"({"a":"\x41"})",
                              R"({"a":"\u12"})",
                              R"({"a":"b})",
                              "// c\n{}",
                              "{}/**/",
                              "{\"a\":0x1}",
                              "{\"a\" 1}",
                              "{\"a\":1 \"b\":2}",
                              "\f{}",
                              "\xC2\xA0{}"})
    EXPECT_EQ(checkRequest(request), invalid) << request;
  EXPECT_EQ(checkRequest(std::string_view("{}\0", 3)), invalid);
}

TEST(RequestDoor, FindsAFaultBehindTheMembersThatItLooksAt) {
  EXPECT_EQ(checkRequest(R"({"operation":"render","text":5,"x":tru})"), invalid);
  EXPECT_EQ(checkRequest(R"({"operation":"render","text":"a","x":[1,{"y":01}]})"), invalid);
  EXPECT_EQ(checkRequest(R"({"operation":"render"} ])"), invalid);
}

TEST(RequestDoor, TakesValidUTF8WithoutAByteOrderMark) {
  EXPECT_EQ(checkRequest("\xEF\xBB\xBF{}"), invalid);
  for (const char* bytes : {"\xFF", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\x80"}) {
    EXPECT_EQ(checkRequest(R"({"a":")" + std::string(bytes) + "\"}"), invalid);
    EXPECT_EQ(checkRequest("{\"" + std::string(bytes) + R"(":1})"), invalid);
  }
}

TEST(RequestDoor, RefusesAnEscapedLoneSurrogateAnywhere) {
  for (const char* request : {R"({"a":"\ud800"})", R"({"a":"\udc00"})", R"({"\ud800":1})", R"({"a":["\ud83dx"]})",
                              R"({"operation":"render","text":"\ud83d\u0041"})"})
    EXPECT_EQ(checkRequest(request), invalid) << request;
  EXPECT_EQ(checkRequest(R"({"a":"\ud83d\ude00"})"), passes);
}

TEST(RequestDoor, TakesNumbersOfAnySize) {
  EXPECT_EQ(checkRequest(R"({"a":123456789012345678901234567890,"b":-18446744073709551616,"c":1e400,"d":1E-9999})"),
            passes);
  EXPECT_EQ(checkRequest("{\"a\":" + std::string(100'000, '9') + "}"), passes);
}

TEST(RequestDoor, NestsUpToItsLimit) {
  for (const std::size_t levels : {maximumJSONNesting - 1, maximumJSONNesting, maximumJSONNesting + 1}) {
    const std::string request = "{\"a\":" + repeated("[", levels - 1) + repeated("]", levels - 1) + "}";
    EXPECT_EQ(checkRequest(request), levels <= maximumJSONNesting ? passes : invalid) << levels;
  }
  EXPECT_EQ(checkRequest(std::string(4'000'000, '[')), invalid);
  EXPECT_EQ(checkRequest(repeated("{\"a\":", 800'000)), invalid);
}

TEST(RequestDoor, TellsAListFromAScalarOnTop) {
  EXPECT_EQ(checkRequest("[]"), notObject);
  EXPECT_EQ(checkRequest(" [ {\"operation\":\"render\"} ] "), notObject);
  EXPECT_EQ(checkRequest("[1"), invalid) << "a list must be one";
  for (const char* scalar : {"1", "-1.5", "true", "false", "null", "\"render\"", "1 ", "\"\""})
    EXPECT_EQ(checkRequest(scalar), invalid) << scalar;
}

TEST(RequestDoor, AsksForASourceOnlyWhenTheOperationIsExactlyRender) {
  for (const char* request :
       {R"({"text":5})", R"({"operation":"Render"})", R"({"operation":"render "})", R"({"operation":""})",
        R"({"operation":"rende"})", R"({"operation":"render\u0000"})", R"({"operation":null})", R"({"operation":1})",
        R"({"operation":["render"]})", R"({"operation":{"operation":"render"}})", R"({"Operation":"render"})",
        R"({"a":{"operation":"render"}})"})
    EXPECT_EQ(checkRequest(request), passes) << request;
  for (const char* text : {"5", "null", "true", "[\"a\"]", "{\"text\":\"a\"}"})
    EXPECT_EQ(checkRequest(R"({"operation":"render","text":)" + std::string(text) + "}"), tooLarge) << text;
  EXPECT_EQ(checkRequest(R"({"operation":"render"})"), tooLarge);
  EXPECT_EQ(checkRequest(R"({"operation":"render","Text":"a"})"), tooLarge);
  EXPECT_EQ(checkRequest(R"({"text":"a","operation":"render"})"), passes) << "in either order";
  EXPECT_EQ(checkRequest(withSource("")), passes) << "an empty source is one";
}

TEST(RequestDoor, TakesKeysAndTextsForWhatTheySpell) {
  EXPECT_EQ(checkRequest(R"({"\u006fperation":"r\u0065nder"})"), tooLarge);
  EXPECT_EQ(checkRequest(R"({"operation":"render","te\u0078t":"a"})"), passes);
  EXPECT_EQ(checkRequest(R"({"operation":"render","\u0074\u0065\u0078\u0074":5})"), tooLarge);
}

TEST(RequestDoor, CountsTheSourceAsDecodedUTF8) {
  struct Case {
    const char* spelled;
    std::size_t bytes;
  };
  for (const Case& piece : {Case{"a", 1},
                            {"\\n", 1},
                            {"\\u0061", 1},
                            {"\\u00e9", 2},
                            {"\xC3\xA9", 2},
                            {"\\u20AC", 3},
                            {"\\ud83d\\ude00", 4},
                            {"\xF0\x9F\x98\x80", 4}}) {
    const std::size_t most = RendererLimits::sourceBytes / piece.bytes;
    const std::string fill(RendererLimits::sourceBytes % piece.bytes, 'a');
    const std::string full = repeated(piece.spelled, most) + fill;
    EXPECT_EQ(checkRequest(withSource(full)), passes) << piece.spelled;
    EXPECT_EQ(checkRequest(withSource(full + "a")), tooLarge) << piece.spelled;
    EXPECT_EQ(checkRequest(
                  withSource(full.substr(0, full.size() - fill.size()).substr(std::string_view(piece.spelled).size()))),
              passes);
  }
}

TEST(RequestDoor, TakesTheLastOfSeveralMembersWithOneKey) {
  EXPECT_EQ(checkRequest(R"({"operation":"other","operation":"render"})"), tooLarge);
  EXPECT_EQ(checkRequest(R"({"operation":"render","operation":"other"})"), passes);
  EXPECT_EQ(checkRequest(R"({"operation":"render","\u006fperation":5})"), passes);
  EXPECT_EQ(checkRequest(R"({"operation":"render","text":5,"text":"a"})"), passes);
  EXPECT_EQ(checkRequest(R"({"operation":"render","text":"a","text":5})"), tooLarge);
}

}  // namespace
}  // namespace tessary
