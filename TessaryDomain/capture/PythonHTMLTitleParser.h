#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// A scanner for HTML as it is found, damaged or not, that sees the same tags and the same text as CPython 3.14's
/// `html.parser.HTMLParser` with `convert_charrefs` on. It builds no tree. Comments, declarations, processing
/// instructions and marked sections are passed over; nothing fails.
///
/// It departs from CPython on purpose in three points:
/// - "<!-->" and "<!--->" are whole comments, also where a "-->" follows later.
/// - A quoted value that is never closed runs to the end of the input. (CPython looks for other ways to read the tag.)
///   If the input's last unit happens to be ">", a start tag with such a value is text, and an end tag an end tag.
/// - Lower-casing follows the Unicode version of the linked ICU, not of CPython.
///
/// Example: "<p class=A>1 &lt; 2</p>" gives `Start{"p", {{"class", "A"}}}`, `Text` for "1 &lt; 2", to be decoded, and
/// `End{"p"}`.
namespace tessary::PythonHTMLTitle {

/// One attribute of a start tag.
template <typename Unit>
struct BasicAttribute {
  /// Lower-cased.
  std::basic_string_view<Unit> name;
  /// Without its quotes, its character references decoded by `unescapeAttribute`; absent where no "=" follows the name.
  std::optional<std::basic_string_view<Unit>> value;

  bool operator==(const BasicAttribute&) const = default;
};

/// A start tag. `<br/>` is a start directly followed by an end.
template <typename Unit>
struct BasicStart {
  /// Lower-cased.
  std::basic_string_view<Unit> tag;
  /// In the order of the document, a repeated name as often as it stands there.
  std::span<const BasicAttribute<Unit>> attributes;

  /// The value of the first attribute of that name; absent where there is none or it has no value.
  [[nodiscard]] std::optional<std::basic_string_view<Unit>> firstValue(std::basic_string_view<Unit> name) const {
    for (const BasicAttribute<Unit>& attribute : attributes) {
      if (attribute.name == name) return attribute.value;
    }
    return std::nullopt;
  }
};

/// An end tag.
template <typename Unit>
struct BasicEnd {
  /// Lower-cased.
  std::basic_string_view<Unit> tag;
};

/// A run of text: the units of `Parser::source` from `begin` up to, not including, `end`. Never empty.
struct Text {
  std::size_t begin;
  std::size_t end;
  /// True if the text is to pass through `unescape`.
  bool decode;

  bool operator==(const Text&) const = default;
};

/// One event. What it points to lives until the handler returns.
template <typename Unit>
using BasicEvent = std::variant<BasicStart<Unit>, BasicEnd<Unit>, Text>;

/// The scanner over units that are Unicode scalars (`Parser`) or bytes of UTF-8 (`UTF8Parser`). All markup is written
/// in ASCII, which stands for itself in both, so both give the same events; positions count units.
template <typename Unit>
class BasicParser {
 public:
  using View = std::basic_string_view<Unit>;
  using Event = BasicEvent<Unit>;
  using Start = BasicStart<Unit>;
  using End = BasicEnd<Unit>;
  using Handler = std::function<void(const Event&)>;

  /// A parser of the whole of `html`, which must outlive it. Ill-formed UTF-8 is read as U+FFFD.
  explicit BasicParser(View html);
  BasicParser(const BasicParser&) = delete;
  BasicParser& operator=(const BasicParser&) = delete;

  /// What is parsed, and what the positions of `Text` count in: `html` itself, unless that was ill-formed.
  [[nodiscard]] View source() const { return source_; }

  /// The units of a text event.
  [[nodiscard]] View slice(const Text& text) const { return source_.substr(text.begin, text.end - text.begin); }

  /// Calls `handler` with the events in the order of the document; every run begins at its start. With `end` the input
  /// is complete, and what stands unfinished at its end is text or dropped. Without it the run stops before the first
  /// piece that more input could change: an unfinished tag or comment, an open raw element, a cut off reference.
  void run(bool end, const Handler& handler);

 private:
  /// How a tag came to its end.
  enum class Close : std::uint8_t { tag, selfClosing, inputEnded, quoteLeftOpen };
  struct Tag {
    View name;
    std::size_t end;
    Close close;
  };

  [[nodiscard]] bool isInRawText() const { return !rawElement_.empty(); }
  void enterRawText(View tag);
  void leaveRawText();

  [[nodiscard]] std::size_t textEnd(std::size_t from, bool end) const;
  [[nodiscard]] bool mayEndInCutReference(std::size_t from) const;
  [[nodiscard]] std::size_t rawTextEnd(std::size_t from) const;
  std::size_t markup(std::size_t at, bool end, const Handler& handler);
  std::size_t startTag(std::size_t at, const Handler& handler);
  std::size_t endTag(std::size_t at, const Handler& handler);
  [[nodiscard]] std::size_t comment(std::size_t at) const;
  [[nodiscard]] std::size_t declaration(std::size_t at) const;

  Tag readTag(std::size_t from);
  std::size_t readAttribute(std::size_t from);
  [[nodiscard]] std::size_t skip(std::size_t from, std::uint8_t set) const;
  [[nodiscard]] std::size_t find(std::size_t from, std::uint8_t set) const;
  [[nodiscard]] std::size_t behind(Unit unit, std::size_t from) const;
  [[nodiscard]] bool standsAt(std::size_t at, std::string_view ascii) const;
  View lowered(View name);
  View decoded(View value);

  std::basic_string<Unit> repaired_;
  View source_;
  /// The raw text element that is open, in lower case; empty if none is.
  std::string_view rawElement_;
  /// True if text has its character references decoded.
  bool escapable_ = true;
  std::vector<BasicAttribute<Unit>> attributes_;
  /// Names and values of the current tag that do not stand in the source as they are. A deque never moves them.
  std::deque<std::basic_string<Unit>> rewritten_;
};

/// The scanner over scalars, and over UTF-8, with the events of each.
using Parser = BasicParser<char32_t>;
using UTF8Parser = BasicParser<char>;
using Event = BasicEvent<char32_t>;
using UTF8Event = BasicEvent<char>;

extern template class BasicParser<char32_t>;
extern template class BasicParser<char>;

}  // namespace tessary::PythonHTMLTitle
