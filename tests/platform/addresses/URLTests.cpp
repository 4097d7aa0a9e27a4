#include <array>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "TessaryPlatform/addresses/PercentEncoding.h"
#include "TessaryPlatform/addresses/URL.h"

namespace tessary {
namespace {

std::optional<URL> parse(std::string_view text) {
  // An exactly sized buffer, so that the sanitizer sees a byte read too far.
  const std::unique_ptr<char[]> bytes(new char[text.size()]);
  text.copy(bytes.get(), text.size());
  return URL::parse({bytes.get(), text.size()});
}

struct Row {
  std::string_view text;
  std::string_view scheme;
  std::optional<std::string_view> user;
  std::optional<std::string_view> password;
  std::optional<std::string_view> host;
  std::optional<int> port;
  std::string_view path;
  std::optional<std::string_view> query;
  std::optional<std::string_view> fragment;
};

constexpr auto absent = std::nullopt;

TEST(URL, HasTheComponentsOfItsText) {
  for (const Row& row : std::vector<Row>{
           // The examples of RFC 3986, section 1.1.2.
           {"ftp://ftp.is.co.za/rfc/rfc1808.txt", "ftp", absent, absent, "ftp.is.co.za", absent, "/rfc/rfc1808.txt",
            absent, absent},
           {"http://www.ietf.org/rfc/rfc2396.txt", "http", absent, absent, "www.ietf.org", absent, "/rfc/rfc2396.txt",
            absent, absent},
           {"ldap://[2001:db8::7]/c=GB?objectClass?one", "ldap", absent, absent, "[2001:db8::7]", absent, "/c=GB",
            "objectClass?one", absent},
           {"mailto:John.Doe@example.com", "mailto", absent, absent, absent, absent, "John.Doe@example.com", absent,
            absent},
           {"news:comp.infosystems.www.servers.unix", "news", absent, absent, absent, absent,
            "comp.infosystems.www.servers.unix", absent, absent},
           {"tel:+1-816-555-1212", "tel", absent, absent, absent, absent, "+1-816-555-1212", absent, absent},
           {"telnet://192.0.2.16:80/", "telnet", absent, absent, "192.0.2.16", 80, "/", absent, absent},
           {"urn:oasis:names:specification:docbook:dtd:xml:4.1.2", "urn", absent, absent, absent, absent,
            "oasis:names:specification:docbook:dtd:xml:4.1.2", absent, absent},
           // Its section 3.
           {"foo://example.com:8042/over/there?name=ferret#nose", "foo", absent, absent, "example.com", 8042,
            "/over/there", "name=ferret", "nose"},
           {"https://user:pass:word@h:1/", "https", "user", "pass:word", "h", 1, "/", absent, absent},
           {"https://user:@h", "https", "user", "", "h", absent, "", absent, absent},
           {"https://:p@h", "https", "", "p", "h", absent, "", absent, absent},
           {"https://@h", "https", "", absent, "h", absent, "", absent, absent},
           {"https://us%40er@h", "https", "us%40er", absent, "h", absent, "", absent, absent},
           {"HTTPS://Example.TEST/A", "HTTPS", absent, absent, "Example.TEST", absent, "/A", absent, absent},
           {"https://h?", "https", absent, absent, "h", absent, "", "", absent},
           {"https://h#", "https", absent, absent, "h", absent, "", absent, ""},
           {"https://h?q?r/s#f?g/h", "https", absent, absent, "h", absent, "", "q?r/s", "f?g/h"},
           {"https://h#f?q", "https", absent, absent, "h", absent, "", absent, "f?q"},
           {"https://h/a/./b/../c//d/", "https", absent, absent, "h", absent, "/a/./b/../c//d/", absent, absent},
           {"https://h/@b:c", "https", absent, absent, "h", absent, "/@b:c", absent, absent},
           {"https:///path", "https", absent, absent, "", absent, "/path", absent, absent},
           {"https://", "https", absent, absent, "", absent, "", absent, absent},
           {"https:", "https", absent, absent, absent, absent, "", absent, absent},
           {"https:/a", "https", absent, absent, absent, absent, "/a", absent, absent},
           {"https:a", "https", absent, absent, absent, absent, "a", absent, absent},
           {"file:///Users/a%20b", "file", absent, absent, "", absent, "/Users/a%20b", absent, absent},
           {"a+b-c.1:x", "a+b-c.1", absent, absent, absent, absent, "x", absent, absent},
           {"https://1.2.3.4.5/", "https", absent, absent, "1.2.3.4.5", absent, "/", absent, absent},
           {"https://999.1.1.1/", "https", absent, absent, "999.1.1.1", absent, "/", absent, absent},
           {"https://[::ffff:192.0.2.1]:443/", "https", absent, absent, "[::ffff:192.0.2.1]", 443, "/", absent, absent},
           {"https://[v1F.a:b]/", "https", absent, absent, "[v1F.a:b]", absent, "/", absent, absent},
           {"https://a_b.-c-..test", "https", absent, absent, "a_b.-c-..test", absent, "", absent, absent},
           {"https://a!$&'()*+,;=b", "https", absent, absent, "a!$&'()*+,;=b", absent, "", absent, absent},
           {"https://h:0", "https", absent, absent, "h", 0, "", absent, absent},
           {"https://h:65535", "https", absent, absent, "h", 65'535, "", absent, absent},
       }) {
    const auto url = parse(row.text);
    ASSERT_TRUE(url) << row.text;
    EXPECT_EQ(url->text(), row.text);
    EXPECT_EQ(url->scheme(), row.scheme) << row.text;
    EXPECT_EQ(url->encodedUser(), row.user) << row.text;
    EXPECT_EQ(url->encodedPassword(), row.password) << row.text;
    EXPECT_EQ(url->encodedHost(), row.host) << row.text;
    EXPECT_EQ(url->host(), row.host) << row.text;  // none of these hosts has an escape
    EXPECT_EQ(url->port(), row.port) << row.text;
    EXPECT_EQ(url->encodedPath(), row.path) << row.text;
    EXPECT_EQ(url->encodedQuery(), row.query) << row.text;
    EXPECT_EQ(url->encodedFragment(), row.fragment) << row.text;
  }
}

struct RewrittenRow {
  std::string_view text;
  std::string_view written;
};

TEST(URL, BringsWhatPeopleWriteIntoTheFormOfTheGrammar) {
  for (const auto& [text, written] : {
           RewrittenRow{"https://h/문서?검색=값#장",
                        "https://h/%EB%AC%B8%EC%84%9C?%EA%B2%80%EC%83%89=%EA%B0%92#%EC%9E%A5"},
           RewrittenRow{"https://h/a|b^c`d{e}f<g>h\"i[j]", "https://h/a%7Cb%5Ec%60d%7Be%7Df%3Cg%3Eh%22i%5Bj%5D"},
           RewrittenRow{"https://h/?filter[a]=1|2", "https://h/?filter%5Ba%5D=1%7C2"},
           RewrittenRow{"https://h/#a#b", "https://h/#a%23b"},
           RewrittenRow{"https://h/%ed%95%9C", "https://h/%ed%95%9C"},
           RewrittenRow{"https://h/\U0001F600", "https://h/%F0%9F%98%80"},
           RewrittenRow{"mailto:é@h", "mailto:%C3%A9@h"},
           RewrittenRow{"https://bücher.example/ü", "https://xn--bcher-kva.example/%C3%BC"},
           RewrittenRow{"https://b%C3%BCcher.example", "https://xn--bcher-kva.example"},
           RewrittenRow{"https://example。test:80", "https://example.test:80"},
           RewrittenRow{"https://%65x%61mple.test", "https://example.test"},
           RewrittenRow{"https://exa%2fmple.test", "https://exa%2Fmple.test"},
           RewrittenRow{"https://exa%00mple.test", "https://exa%00mple.test"},
           RewrittenRow{"https://h:/", "https://h/"},
           RewrittenRow{"https://h:", "https://h"},
           RewrittenRow{"https://h:0080/", "https://h:80/"},
           RewrittenRow{"https://h:00000000000000000000/", "https://h:0/"},
           RewrittenRow{"https://[::1]:/", "https://[::1]/"},
       }) {
    const auto url = parse(text);
    ASSERT_TRUE(url) << text;
    EXPECT_EQ(url->text(), written) << text;
    EXPECT_EQ(parse(url->text()), url) << text;
  }
}

TEST(URL, UndoesTheEscapesOfAHost) {
  EXPECT_EQ(parse("https://exa%2Fm%25ple.test")->host(), "exa/m%ple.test");
  EXPECT_EQ(parse("https://exa%2Fm%25ple.test")->encodedHost(), "exa%2Fm%25ple.test");
  EXPECT_EQ(parse("https://%65xample%3a.test")->encodedHost(), "example%3A.test");
  EXPECT_EQ(parse("https://%65xample%3a.test")->host(), "example:.test");
  EXPECT_EQ(parse("mailto:a@b")->host(), std::nullopt);
}

TEST(URL, IsAbsentForTextThatIsNoAddress) {
  for (const auto text : std::to_array<std::string_view>({
           "",
           ":",
           "//h/",
           "/a",
           "a",
           "#f",
           "?q",
           "1http://h",
           "-a:b",
           "ht tp://h",
           "hé:a",
           "%68ttps://h",
           "a/b:c",
           // Blanks, control characters, backslashes, anywhere.
           " https://h",
           "https://h ",
           "https://h/a b",
           "https://h/?a b",
           "https://h/#a b",
           "https://h/a\tb",
           "https://h/\n",
           "https://h/\r",
           "https://h/\x7F",
           "https://h/\x01",
           "https://h\\a",
           "https://h/a\\b",
           "https://h/?\\",
           "https://h/#\\",
           "https:\\\\h",
           std::string_view("https://h/\0", 11),
           // Incomplete escapes.
           "https://h/%",
           "https://h/%4",
           "https://h/%4g",
           "https://h/?%",
           "https://h/#%zz",
           "https://%",
           "https://%4",
           "https://u%@h",
           // Broken UTF-8.
           "https://h/\xFF",
           "https://h/\xC3",
           "https://h/\xED\xA0\x80",
           "https://\xFF/",
           "https://h/\xC0\xAF",
           "https://%FF/",
           "https://a%C3/",
           // Hosts.
           "https://a@b@c/",
           "https://é@h/",
           "https://u:é@h/",
           "https://[u]@h/",
           "https://a[b]/",
           "https://[::1",
           "https://[]",
           "https://[",
           "https://]",
           "https://[::1]x",
           "https://[::1]x:80",
           "https://[::g]",
           "https://[1:2:3:4:5:6:7:8:9]",
           "https://[::1%25en0]",
           "https://[fe80::1%en0]",
           "https://[v.a]",
           "https://[v1.]",
           "https://[vg.a]",
           "https://[1.2.3.4]",
           "https://a|b",
           "https://a<b",
           "https://a\"b",
           "https://a{b}",
           "https://a^b",
           "https://a`b",
           "https://é..test",
           // Compatibility forms of the characters that end a host, and of ":" and "[".
           "https://example.com\uFF0F.evil.test/",
           "https://example.com\u2100.evil.test/",
           "https://example.com\uFF1F.evil.test/",
           "https://example.com\uFF03.evil.test/",
           "https://user\uFF20evil.test/",
           "https://h\uFF1A80/",
           "https://\uFF3B::1\uFF3D/",
           "https://a\uFF05b/",
           "https://a\uFF3Cb/",
           "https://\u00E9%2F.test/",
           "https://\u00AD/",
           // Ports.
           "https://h:65536",
           "https://h:99999999999999999999",
           "https://h:-1",
           "https://h:+1",
           "https://h:1a",
           "https://h:a",
           "https://h:80:80",
           "https://h: 80",
           "https://h:８０",
           "https://h:%38",
           "https://[::1]:65536",
       })) {
    const auto url = parse(text);
    EXPECT_EQ(url, std::nullopt) << text << " is " << (url ? url->text() : "");
  }
}

TEST(URL, OfAFileHoldsItsPathByteForByte) {
  struct FileRow {
    std::string_view path;
    std::string_view text;
  };
  for (const auto& [path, text] : {
           FileRow{"/", "file:///"},
           FileRow{"/a/b.js", "file:///a/b.js"},
           FileRow{"/a b/c%20d", "file:///a%20b/c%2520d"},
           FileRow{"/a?b#c", "file:///a%3Fb%23c"},
           FileRow{"/문서", "file:///%EB%AC%B8%EC%84%9C"},
           FileRow{"//a/../b/", "file:////a/../b/"},
           FileRow{"/a\\b\n\xFF", "file:///a%5Cb%0A%FF"},
       }) {
    const auto url = URL::ofFile(path);
    ASSERT_TRUE(url) << path;
    EXPECT_EQ(url->text(), text);
    EXPECT_EQ(url->encodedHost(), "");
    EXPECT_EQ(PercentEncoding::decoded(url->encodedPath()), path);
    EXPECT_EQ(parse(text), url);
  }
  EXPECT_EQ(URL::ofFile(""), std::nullopt);
  EXPECT_EQ(URL::ofFile("a"), std::nullopt);
  EXPECT_EQ(URL::ofFile("~/a"), std::nullopt);
}

TEST(URL, EqualsAndHashesByItsText) {
  EXPECT_EQ(parse("https://bücher.example"), parse("https://xn--bcher-kva.example"));
  EXPECT_NE(parse("https://h"), parse("https://h/"));
  EXPECT_NE(parse("https://h"), parse("https://H"));
  const std::hash<URL> hash;
  EXPECT_EQ(hash(*parse("https://h:080")), hash(*parse("https://h:80")));
}

/// Whatever is read is ASCII of the grammar's characters, reads again as itself, and consists of its components.
TEST(URL, WhatIsReadReadsAgainAsItself) {
  std::mt19937_64 random(3'986);
  constexpr auto pieces = std::to_array<std::string_view>(
      {"https", "http", "://",    ":", "/",    "//",  "?",      "#",  "@",    "[",     "]", "::1",
       "%41",   "%2F",  "%C3%BC", "%", "a",    "b.c", "ü",      "한", "。",   "／",    "1", "80",
       "65535", "|",    "-",      ".", "xn--", "v1.", "\u00AD", "é",  "file", "mailto"});
  int readCount = 0;
  for (int round = 0; round < 40'000; ++round) {
    std::string text = round % 3 == 0 ? "" : "https://";
    for (auto count = random() % 8; count > 0; --count)
      text += pieces[random() % pieces.size()];
    const auto url = parse(text);
    if (!url) continue;
    ++readCount;
    ASSERT_EQ(parse(url->text()), url) << text;
    for (const char byte : url->text())
      ASSERT_TRUE(byte > ' ' && byte < 0x7F && byte != '\\') << text;

    std::string whole(url->scheme());
    whole += ':';
    if (const auto host = url->encodedHost()) {
      whole += "//";
      if (const auto user = url->encodedUser()) {
        whole += *user;
        if (const auto password = url->encodedPassword()) whole.append(":").append(*password);
        whole += '@';
      }
      whole += *host;
      if (const auto port = url->port()) whole += ":" + std::to_string(*port);
      ASSERT_TRUE(url->encodedPath().empty() || url->encodedPath().starts_with('/')) << text;
    }
    whole += url->encodedPath();
    if (const auto query = url->encodedQuery()) whole.append("?").append(*query);
    if (const auto fragment = url->encodedFragment()) whole.append("#").append(*fragment);
    ASSERT_EQ(url->text(), whole) << text;
  }
  EXPECT_GT(readCount, 5'000);
}

TEST(URL, ReadsTwentyThousandBytesOfAnyCharacter) {
  for (const std::string_view unit : {"a", "/", "?", "#", "@", ":", "[", "]", "%41", "%", "ü", "한.", ".", "|", "\\"}) {
    std::string many;
    while (many.size() < 1'000'000)
      many += unit;
    for (const std::string_view start : {"", "https://", "https://h/", "https://h/?", "https://h/#", "https://u:p@",
                                         "https://[", "https://h:", "a:"}) {
      const auto url = parse(std::string(start) + many);
      if (url) {
        EXPECT_EQ(parse(url->text()), url);
      }
    }
  }
}

}  // namespace
}  // namespace tessary
