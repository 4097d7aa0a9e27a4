#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "TessaryPlatform/addresses/HostName.h"
#include "TessaryPlatform/addresses/URL.h"

namespace tessary {
namespace {

struct Row {
  std::string_view name;
  std::optional<std::string_view> ascii;
};

/// The Punycode of these rows is CPython's (`str.encode("punycode")`).
TEST(HostName, WritesUnicodeLabelsInPunycode) {
  for (const auto& [name, ascii] : {
           Row{"bücher.example", "xn--bcher-kva.example"},
           Row{"BÜCHER.Example", "xn--bcher-kva.example"},
           Row{"한국", "xn--3e0b707e"},
           Row{"www.테스트.test", "www.xn--9t4b11yi5a.test"},
           Row{"日本語。test", "xn--wgv71a119e.test"},
           Row{"пример．испытание", "xn--e1afmkfd.xn--80akhbyknj4f"},
           Row{"ab💩.test", "xn--ab-9t72a.test"},
           // Non-transitional: a "ß" is not "ss".
           Row{"faß.de", "xn--fa-hia.de"},
           // Compatibility forms of ASCII.
           Row{"ｅｘａｍｐｌｅ.test", "example.test"},
           Row{"１２７.０.０.１", "127.0.0.1"},
           Row{"ⓔxample.test", "example.test"},
           Row{"㎏.test", "kg.test"},
           // Characters that stand for nothing.
           Row{"soft\u00ADhyphen.test", "softhyphen.test"},
           Row{"zero\u200Bwidth.test", "zerowidth.test"},
           // Hyphens are nobody's business.
           Row{"-ü.test", "xn----eha.test"},
       }) {
    EXPECT_EQ(HostName::toASCII(name), ascii) << name;
  }
}

TEST(HostName, RefusesWhatTheRulesRefuse) {
  for (const std::string_view name : {
           "ü..test",          // an empty label
           "\u0301a.test",     // a label that begins with a combining mark
           "a\u202Eb.test",    // a control of the direction of writing
           "a\uFFFDb.test",    // a character that stands for a broken one
           "a\u0627.test",     // left-to-right and right-to-left in one label
           "a\u200Cb.test",    // a joiner where nothing joins
           "xn--\u00FC.test",  // Punycode that is none
           "xn--ls8h=.ü",      // the same
           "\u00AD",           // nothing is left
           "a\u2028b.ü",       // a line separator
           "\xFF.test",
           "ü\xC3",
           "\xED\xA0\x80",
       }) {
    EXPECT_EQ(HostName::toASCII(name), std::nullopt) << name;
  }
}

TEST(HostName, CarriesLabelsOf63BytesAndNamesOf253) {
  // "ü" and n letters "a" are "xn--", the letters, "-" and the digits for one "ü" in front.
  const auto label = [](std::size_t letters) { return "ü" + std::string(letters, 'a'); };
  std::size_t longest = 0;
  for (std::size_t letters = 1; letters < 80; ++letters) {
    const auto ascii = HostName::toASCII(label(letters));
    if (!ascii) break;
    longest = ascii->size();
  }
  EXPECT_EQ(longest, 63);

  const std::string labels = std::string(63, 'a') + "." + std::string(63, 'b') + "." + std::string(63, 'c') + ".";
  const auto ofLength = [&](std::size_t length) {  // the last label ends with "ü", which is "xn--" … "-" and more
    const std::string tail = "ü";                  // "xn--tda"
    return labels + std::string(length - labels.size() - 8, 'd') + "." + tail;
  };
  EXPECT_EQ(HostName::toASCII(ofLength(252)).value_or("").size(), 252);
  EXPECT_EQ(HostName::toASCII(ofLength(253)).value_or("").size(), 253);
  EXPECT_EQ(HostName::toASCII(ofLength(254)), std::nullopt);
}

/// Full-width letters take three bytes each and soft hyphens two, so names of that many bytes can still be short.
TEST(HostName, ReadsUpTo1024Bytes) {
  static_assert(URL::maximumUnicodeHostBytes == 1'024);
  std::string hyphens;
  for (int count = 0; count < 510; ++count)
    hyphens += "\u00AD";
  EXPECT_EQ(HostName::toASCII("abc" + hyphens), "abc");    // 1,023 bytes
  EXPECT_EQ(HostName::toASCII("abcd" + hyphens), "abcd");  // 1,024
  EXPECT_EQ(HostName::toASCII("abcde" + hyphens), std::nullopt);
}

}  // namespace
}  // namespace tessary
