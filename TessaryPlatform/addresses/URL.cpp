#include "TessaryPlatform/addresses/URL.h"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

#include <boost/url/grammar/parse.hpp>
#include <boost/url/ipv6_address.hpp>
#include <boost/url/rfc/pchars.hpp>
#include <boost/url/rfc/pct_encoded_rule.hpp>
#include <boost/url/rfc/sub_delim_chars.hpp>
#include <boost/url/rfc/unreserved_chars.hpp>

#include "TessaryPlatform/addresses/HostName.h"
#include "TessaryPlatform/addresses/PercentEncoding.h"
#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/text/UTF8.h"

// The text is cut by the expression of RFC 3986, appendix B, which has one way to read any text; each piece is then
// brought into the ASCII form and held to Boost's grammar of that piece. Boost's own rule for a whole address is not
// used: in version 1.81 it ends the host of "https://1.2.3.4.5/" behind the fourth number and that of "https://a@b@c/"
// behind the "b", and calls the rest a path.

namespace tessary {

/// The pieces of an address, each without the delimiters that set it off.
struct URL::Components {
  std::string scheme;
  std::optional<std::string> user;
  std::optional<std::string> password;
  std::optional<std::string> host;
  std::optional<std::uint16_t> port;
  std::string path;
  std::optional<std::string> query;
  std::optional<std::string> fragment;
};

namespace {

namespace urls = boost::urls;

using PercentEncoding::ASCIISet;
using PercentEncoding::pathCharacters;
using PercentEncoding::registeredName;

/// What a query and a fragment take without an escape.
constexpr ASCIISet queryCharacters = pathCharacters | ASCIISet("?");

/// Takes what stands in front of the first `delimiter` off `rest`, the delimiter too; absent where there is none.
std::optional<std::string_view> takeUpTo(std::string_view& rest, char delimiter) {
  const std::size_t position = rest.find(delimiter);
  if (position == std::string_view::npos) return std::nullopt;
  const std::string_view taken = rest.substr(0, position);
  rest.remove_prefix(position + 1);
  return taken;
}

/// Takes what stands behind the first `delimiter` off the end of `rest`, the delimiter too.
std::optional<std::string_view> takeBehind(std::string_view& rest, char delimiter) {
  const std::size_t position = rest.find(delimiter);
  if (position == std::string_view::npos) return std::nullopt;
  const std::string_view taken = rest.substr(position + 1);
  rest = rest.substr(0, position);
  return taken;
}

bool isScheme(std::string_view text) {
  constexpr ASCIISet further("+-.");
  return !text.empty() && isASCIILetter(text.front()) &&
         std::ranges::all_of(text, [&](char byte) { return isASCIIAlphanumeric(byte) || further.contains(byte); });
}

/// No blank, no control character and no "\": what neither the grammar nor an encoding gives a place.
bool holdsOnlyWritableCharacters(std::string_view text) {
  return std::ranges::none_of(text, [](char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value <= 0x20 || value == 0x7F || byte == '\\';
  });
}

template <class Rule>
bool matches(std::string_view text, const Rule& rule) {
  return urls::grammar::parse(urls::string_view(text.data(), text.size()), rule).has_value();
}

/// `text` with its escapes as they are and every other character outside `kept` escaped; absent where that is no text
/// of `rule`, because an escape is incomplete.
template <class Rule>
std::optional<std::string> completed(std::string_view text, const ASCIISet& kept, const Rule& rule) {
  std::string result = PercentEncoding::encoded(text, kept | ASCIISet("%"));
  if (!matches(result, rule)) return std::nullopt;
  return result;
}

bool isIPLiteral(std::string_view bracketed) {
  if (!bracketed.ends_with(']')) return false;
  std::string_view address = bracketed.substr(1, bracketed.size() - 2);
  if (urls::parse_ipv6_address(urls::string_view(address.data(), address.size()))) return true;
  // "v" and a version in hexadecimal digits, ".", and an address in the characters of that version.
  if (!address.starts_with('v') && !address.starts_with('V')) return false;
  address.remove_prefix(1);
  const auto version = takeUpTo(address, '.');
  constexpr ASCIISet digits("0123456789ABCDEFabcdef");
  constexpr ASCIISet addressCharacters = registeredName | ASCIISet(":");
  return version && !version->empty() && !address.empty() &&
         std::ranges::all_of(*version, [&](char byte) { return digits.contains(byte); }) &&
         std::ranges::all_of(address, [&](char byte) { return addressCharacters.contains(byte); });
}

/// A host in the form that an address holds; absent where it is none.
std::optional<std::string> readHost(std::string_view text) {
  if (text.starts_with('[')) return isIPLiteral(text) ? std::optional(std::string(text)) : std::nullopt;
  const auto name = PercentEncoding::decoded(text);
  if (!name) return std::nullopt;
  if (isASCII(*name)) {
    // What is not escaped must be of the grammar's characters; what was escaped may be anything.
    const bool isName =
        std::ranges::all_of(text, [](char byte) { return byte == '%' || registeredName.contains(byte); });
    return isName ? std::optional(PercentEncoding::encoded(*name, registeredName)) : std::nullopt;
  }
  auto ascii = HostName::toASCII(*name);
  // Compatibility forms of "/", "@" or "%" come out as those characters, and would move the end of the host.
  const auto isNameCharacter = [](char byte) { return registeredName.contains(byte); };
  if (!ascii || !std::ranges::all_of(*ascii, isNameCharacter)) return std::nullopt;
  return ascii;
}

/// A port as a number. No digit may be missing its value: what is not a number of 16 bits is no port.
std::optional<std::uint16_t> readPort(std::string_view digits) {
  std::uint16_t port = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), port);
  if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return port;
}

}  // namespace

URL::Slice URL::append(std::string_view component) {
  const Slice slice{text_.size(), component.size()};
  text_ += component;
  return slice;
}

URL URL::assembled(const Components& components) {
  URL url;
  url.scheme_ = url.append(components.scheme);
  url.text_ += ':';
  if (components.host) {
    url.text_ += "//";
    if (components.user) {
      url.user_ = url.append(*components.user);
      if (components.password) {
        url.text_ += ':';
        url.password_ = url.append(*components.password);
      }
      url.text_ += '@';
    }
    url.host_ = url.append(*components.host);
    url.port_ = components.port;
    if (url.port_) url.text_ += ':' + std::to_string(*url.port_);
  }
  url.path_ = url.append(components.path);
  if (components.query) {
    url.text_ += '?';
    url.query_ = url.append(*components.query);
  }
  if (components.fragment) {
    url.text_ += '#';
    url.fragment_ = url.append(*components.fragment);
  }
  return url;
}

/// Reads what stands between the "//" and the path. False where it is no authority.
bool URL::readAuthority(std::string_view text, Components& components) {
  constexpr auto userRule = urls::pct_encoded_rule(urls::unreserved_chars + urls::sub_delim_chars);
  constexpr auto passwordRule = urls::pct_encoded_rule(urls::unreserved_chars + urls::sub_delim_chars + ':');
  if (auto user = takeUpTo(text, '@')) {
    const auto password = takeBehind(*user, ':');
    if (!matches(*user, userRule) || (password && !matches(*password, passwordRule))) return false;
    components.user = *user;
    components.password = password;
  }
  // The ":" of an IP literal stand inside its brackets.
  const std::size_t literalEnd = text.starts_with('[') ? text.find(']') : 0;
  const std::size_t colon = text.find(':', literalEnd);
  if (colon != std::string_view::npos) {
    const std::string_view digits = text.substr(colon + 1);
    text = text.substr(0, colon);
    if (!digits.empty() && !(components.port = readPort(digits))) return false;
  }
  components.host = readHost(text);
  return components.host.has_value();
}

std::optional<URL> URL::parse(std::string_view text) {
  constexpr auto pathRule = urls::pct_encoded_rule(urls::pchars + '/');
  constexpr auto queryRule = urls::pct_encoded_rule(urls::pchars + '/' + '?');
  if (!holdsOnlyWritableCharacters(text) || !isWellFormedUTF8(text)) return std::nullopt;
  const auto fragment = takeBehind(text, '#');
  const auto query = takeBehind(text, '?');
  const auto scheme = takeUpTo(text, ':');
  if (!scheme || !isScheme(*scheme)) return std::nullopt;
  Components components;
  components.scheme = *scheme;
  if (text.starts_with("//")) {
    text.remove_prefix(2);
    const std::string_view authority = text.substr(0, text.find('/'));
    text.remove_prefix(authority.size());
    if (!readAuthority(authority, components)) return std::nullopt;
  }
  auto path = completed(text, pathCharacters, pathRule);
  if (!path) return std::nullopt;
  components.path = *std::move(path);
  if (query && !(components.query = completed(*query, queryCharacters, queryRule))) return std::nullopt;
  if (fragment && !(components.fragment = completed(*fragment, queryCharacters, queryRule))) return std::nullopt;
  return assembled(components);
}

std::optional<URL> URL::ofFile(std::string_view path) {
  if (!path.starts_with('/')) return std::nullopt;
  Components components;
  components.scheme = "file";
  components.host = "";
  components.path = PercentEncoding::encoded(path, pathCharacters);
  return assembled(components);
}

std::optional<std::string> URL::host() const {
  if (!host_) return std::nullopt;
  return PercentEncoding::decoded(slice(*host_));
}

}  // namespace tessary
