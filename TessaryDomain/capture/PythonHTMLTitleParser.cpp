#include "TessaryDomain/capture/PythonHTMLTitleParser.h"

#include <algorithm>
#include <array>

#include "TessaryDomain/capture/PythonHTMLTitleReferences.h"
#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/text/Casing.h"
#include "TessaryPlatform/text/UTF8.h"

// One pass over the input, one decision at each "<".
//
// Text runs to the next "<". What follows the "<" says what it begins: a letter a start tag, "</" an end tag, "<!--" a
// comment, "<?" a processing instruction, "<!" a declaration; any other "<" is text. Inside a raw element ("script",
// "title" ...) nothing but its own end tag ends the text. So "<title>a<b>c</title>" is Start "title", Text "a<b>c",
// End "title".
//
// Time is linear because every unit is looked at a bounded number of times: each construct either is finished, and
// then the pass goes on behind it, or its end does not exist, and then the pass ends too: it stops there, or what
// remains is one text or dropped. No search for an end that failed is made a second time.
//
// A tag is read once, its end found and its attributes noted in the same go. Names and values are views into the
// source; only a capital, a scalar outside ASCII or a "&" makes a rewritten copy necessary.
//
// Where CPython works with regular expressions that can fall back to another reading, the only case in which they do is
// a quoted value that is never closed; here such a value runs to the end of the input.

namespace tessary::PythonHTMLTitle {

namespace {

/// "Could not find its end."
constexpr std::size_t unfinished = std::u32string_view::npos;

/// In how many scalars at the end of the input a "&" may begin a reference that is cut off: "&", the 32 of the longest
/// name, and one more.
constexpr std::size_t cutReferenceScalars = 34;

// Classes of units, as a set of bits.
constexpr std::uint8_t white = 1;     // tab, line feed, form feed, carriage return, blank
constexpr std::uint8_t slash = 2;     // "/"
constexpr std::uint8_t equals = 4;    // "="
constexpr std::uint8_t greater = 8;   // ">"
constexpr std::uint8_t letter = 16;   // ASCII letters
constexpr std::uint8_t capital = 32;  // ASCII capitals
constexpr std::uint8_t foreign = 64;  // all that is not ASCII
constexpr std::uint8_t tagNameEnd = white | slash | greater;
constexpr std::uint8_t attributeNameEnd = tagNameEnd | equals;
constexpr std::uint8_t bareValueEnd = white | greater;

constexpr std::array<std::uint8_t, 256> makeClasses() {
  std::array<std::uint8_t, 256> classes{};
  for (const char unit : {'\t', '\n', '\f', '\r', ' '})
    classes[static_cast<unsigned char>(unit)] = white;
  classes['/'] = slash;
  classes['='] = equals;
  classes['>'] = greater;
  for (std::size_t unit = 'a'; unit <= 'z'; ++unit)
    classes[unit] = letter;
  for (std::size_t unit = 'A'; unit <= 'Z'; ++unit)
    classes[unit] = letter | capital;
  for (std::size_t unit = 0x80; unit <= 0xFF; ++unit)
    classes[unit] = foreign;
  return classes;
}
constexpr std::array<std::uint8_t, 256> classes = makeClasses();

constexpr std::uint8_t classOf(char unit) {
  return classes[static_cast<unsigned char>(unit)];
}
constexpr std::uint8_t classOf(char32_t unit) {
  return unit < classes.size() ? classes[unit] : foreign;
}

constexpr std::array<std::string_view, 6> rawTextElements = {"script", "style", "xmp", "iframe", "noembed", "noframes"};
constexpr std::array<std::string_view, 2> escapableRawTextElements = {"textarea", "title"};
constexpr std::string_view plaintext = "plaintext";

/// Whether `units` is `ascii`, a text in lower case, once it is lower-cased. Of all scalars outside ASCII only U+212A
/// lowers to one letter of ASCII, to "k", which none of the names compared here holds.
template <typename Unit>
constexpr bool lowersTo(std::basic_string_view<Unit> units, std::string_view ascii) {
  return std::ranges::equal(units, ascii,
                            [](Unit unit, char expected) { return lowercasedASCII(unit) == Unit(expected); });
}

template <typename Unit>
constexpr bool equalsASCII(std::basic_string_view<Unit> units, std::string_view ascii) {
  return std::ranges::equal(units, ascii, [](Unit unit, char expected) { return unit == Unit(expected); });
}

/// The element of `elements` that `tag` names; empty if none.
template <typename Unit, std::size_t count>
std::string_view elementNamed(std::basic_string_view<Unit> tag, const std::array<std::string_view, count>& elements) {
  for (const std::string_view element : elements) {
    if (equalsASCII(tag, element)) return element;
  }
  return {};
}

std::string fullyLowered(std::string_view name) {
  return lowercased(name);
}
std::u32string fullyLowered(std::u32string_view name) {
  return toScalars(lowercased(toUTF8(name)));
}

std::string repairedOrEmpty(std::string_view html) {
  return isWellFormedUTF8(html) ? std::string() : repairedUTF8(html);
}
std::u32string repairedOrEmpty(std::u32string_view /*html*/) {
  return {};
}

/// Where the last `count` scalars of `units` begin.
std::size_t lastScalars(std::string_view units, std::size_t count) {
  std::size_t position = units.size();
  for (; count > 0 && position > 0; --count)
    position = previousScalarStart(units, position);
  return position;
}
std::size_t lastScalars(std::u32string_view units, std::size_t count) {
  return units.size() - std::min(units.size(), count);
}

}  // namespace

template <typename Unit>
BasicParser<Unit>::BasicParser(View html)
    : repaired_(repairedOrEmpty(html)), source_(repaired_.empty() ? html : View(repaired_)) {}

template <typename Unit>
void BasicParser<Unit>::run(bool end, const Handler& handler) {
  leaveRawText();
  std::size_t at = 0;
  while (at < source_.size()) {
    // Text up to the next markup.
    const std::size_t textStop = textEnd(at, end);
    if (textStop == unfinished) break;
    if (textStop > at) handler(Text{at, textStop, escapable_});
    at = textStop;
    if (at == source_.size()) break;
    // The markup at the "<".
    const std::size_t next = markup(at, end, handler);
    if (next != unfinished) {
      at = next;
      continue;
    }
    if (!end) break;
    // Unfinished markup is dropped, but a "</" with nothing behind it is text.
    if (at + 2 == source_.size() && standsAt(at, "</")) handler(Text{at, source_.size(), false});
    at = source_.size();
  }
  if (end && at < source_.size()) handler(Text{at, source_.size(), escapable_});
}

template <typename Unit>
void BasicParser<Unit>::enterRawText(View tag) {
  escapable_ = false;
  rawElement_ = elementNamed(tag, rawTextElements);
  if (isInRawText()) return;
  if (equalsASCII(tag, plaintext)) {
    rawElement_ = plaintext;
    return;
  }
  escapable_ = true;
  rawElement_ = elementNamed(tag, escapableRawTextElements);
}

template <typename Unit>
void BasicParser<Unit>::leaveRawText() {
  rawElement_ = {};
  escapable_ = true;
}

/// Where the text that begins at `from` ends: at a "<" or the end of the input. Unfinished if the input may go on.
template <typename Unit>
std::size_t BasicParser<Unit>::textEnd(std::size_t from, bool end) const {
  if (rawElement_ == plaintext) return source_.size();
  if (isInRawText()) return rawTextEnd(from);
  const std::size_t next = source_.find(Unit{'<'}, from);
  if (next != View::npos) return next;
  if (!end && mayEndInCutReference(from)) return unfinished;
  return source_.size();
}

/// True if a "&" stands near the end of the input with nothing behind it that ends a reference.
template <typename Unit>
bool BasicParser<Unit>::mayEndInCutReference(std::size_t from) const {
  const View tail = source_.substr(std::max(from, lastScalars(source_, cutReferenceScalars)));
  const std::size_t ampersand = tail.rfind(Unit{'&'});
  if (ampersand == View::npos) return false;
  const View name = tail.substr(ampersand);
  return std::ranges::none_of(name, [](Unit unit) { return unit == Unit{';'} || (classOf(unit) & white) != 0; });
}

/// The first "</" at or behind `from` that is followed by the name of the raw element and the end of a name.
template <typename Unit>
std::size_t BasicParser<Unit>::rawTextEnd(std::size_t from) const {
  for (std::size_t at = source_.find(Unit{'<'}, from); at != View::npos; at = source_.find(Unit{'<'}, at + 1)) {
    const std::size_t nameEnd = at + 2 + rawElement_.size();
    if (nameEnd >= source_.size()) return unfinished;
    if (source_[at + 1] != Unit{'/'} || (classOf(source_[nameEnd]) & tagNameEnd) == 0) continue;
    if (lowersTo(source_.substr(at + 2, rawElement_.size()), rawElement_)) return at;
  }
  return unfinished;
}

/// Reads the markup at the "<" at `at`, and gives the position behind it.
template <typename Unit>
std::size_t BasicParser<Unit>::markup(std::size_t at, bool end, const Handler& handler) {
  const Unit next = at + 1 < source_.size() ? source_[at + 1] : Unit{};
  if ((classOf(next) & letter) != 0) return startTag(at, handler);
  if (next == Unit{'/'}) return endTag(at, handler);
  if (next == Unit{'?'}) return behind(Unit{'>'}, at + 2);
  if (next == Unit{'!'}) return standsAt(at, "<!--") ? comment(at) : declaration(at);
  if (at + 1 == source_.size() && !end) return unfinished;
  handler(Text{at, at + 1, false});
  return at + 1;
}

template <typename Unit>
std::size_t BasicParser<Unit>::startTag(std::size_t at, const Handler& handler) {
  Tag tag = readTag(at + 1);
  if (source_[tag.end - 1] != Unit{'>'}) return unfinished;
  if (tag.close == Close::quoteLeftOpen) {
    handler(Text{at, tag.end, false});
    return tag.end;
  }
  rewritten_.clear();
  tag.name = lowered(tag.name);
  for (auto& attribute : attributes_) {
    attribute.name = lowered(attribute.name);
    if (attribute.value) attribute.value = decoded(*attribute.value);
  }
  handler(Start{tag.name, attributes_});
  if (tag.close == Close::selfClosing) {
    handler(End{tag.name});
  } else {
    enterRawText(tag.name);
  }
  return tag.end;
}

template <typename Unit>
std::size_t BasicParser<Unit>::endTag(std::size_t at, const Handler& handler) {
  const std::size_t behindGreater = behind(Unit{'>'}, at + 2);
  if (behindGreater == unfinished) return unfinished;
  // "</>" is dropped, and so is "</" with anything but a letter behind it: a bogus comment.
  if ((classOf(source_[at + 2]) & letter) == 0) return behindGreater;
  const Tag tag = readTag(at + 2);
  if (source_[tag.end - 1] != Unit{'>'}) return unfinished;
  rewritten_.clear();
  handler(End{lowered(tag.name)});
  leaveRawText();
  return tag.end;
}

template <typename Unit>
std::size_t BasicParser<Unit>::comment(std::size_t at) const {
  const std::size_t content = at + 4;
  if (standsAt(content, ">")) return content + 1;
  if (standsAt(content, "->")) return content + 2;
  // The first ">" that ends a "-->" or "--!>" which lies wholly behind the "<!--".
  for (std::size_t position = behind(Unit{'>'}, content); position != unfinished;
       position = behind(Unit{'>'}, position)) {
    if (standsAt(position - 3, "-->")) return position;  // where it overlaps the start, it was found above
    if (position >= content + 4 && standsAt(position - 4, "--!>")) return position;
  }
  return unfinished;
}

/// A "<!" that begins no comment. A document type and a bogus comment end alike at the next ">".
template <typename Unit>
std::size_t BasicParser<Unit>::declaration(std::size_t at) const {
  constexpr std::string_view sectionStart = "<![CDATA[";
  if (!standsAt(at, sectionStart)) return behind(Unit{'>'}, at + 2);
  const std::size_t content = at + sectionStart.size();  // no "]" before it that could belong to the end
  for (std::size_t position = behind(Unit{'>'}, content); position != unfinished;
       position = behind(Unit{'>'}, position)) {
    if (standsAt(position - 3, "]]>")) return position;
  }
  return unfinished;
}

/// Reads the tag whose name, a letter first, begins at `from`, and puts its attributes as they stand in `attributes_`.
template <typename Unit>
typename BasicParser<Unit>::Tag BasicParser<Unit>::readTag(std::size_t from) {
  attributes_.clear();
  std::size_t at = find(from, tagNameEnd);
  const View name = source_.substr(from, at - from);
  while (true) {
    const std::size_t gap = at;
    at = skip(gap, white | slash);
    if (at == source_.size()) return {name, at, Close::inputEnded};
    if (source_[at] == Unit{'>'}) {
      // Only a "/" directly before the ">" closes the tag itself, and not one that a bare value holds: "<a b=c/>".
      const bool isSelfClosing = at > gap && source_[at - 1] == Unit{'/'};
      return {name, at + 1, isSelfClosing ? Close::selfClosing : Close::tag};
    }
    at = readAttribute(at);
    if (at == unfinished) return {name, source_.size(), Close::quoteLeftOpen};
  }
}

/// Reads the attribute whose name begins at `from`, and gives the position behind it, or unfinished if its quoted value
/// is never closed. White space before a "=" belongs to the attribute, as does that behind it.
template <typename Unit>
std::size_t BasicParser<Unit>::readAttribute(std::size_t from) {
  const std::size_t nameEnd = find(from + 1, attributeNameEnd);  // a name may begin with "="
  const View name = source_.substr(from, nameEnd - from);
  const std::size_t sign = skip(nameEnd, white);
  if (sign == source_.size() || source_[sign] != Unit{'='}) {
    attributes_.push_back({name, std::nullopt});
    return sign;
  }
  const std::size_t start = skip(sign + 1, white);
  const Unit quote = start < source_.size() ? source_[start] : Unit{};
  if (quote == Unit{'"'} || quote == Unit{'\''}) {
    const std::size_t closing = source_.find(quote, start + 1);
    if (closing == View::npos) return unfinished;
    attributes_.push_back({name, source_.substr(start + 1, closing - start - 1)});
    return closing + 1;
  }
  const std::size_t valueEnd = find(start, bareValueEnd);
  attributes_.push_back({name, source_.substr(start, valueEnd - start)});
  return valueEnd;
}

/// The first position at or behind `from` whose unit is in none of `set`, at most the end of the input.
template <typename Unit>
std::size_t BasicParser<Unit>::skip(std::size_t from, std::uint8_t set) const {
  while (from < source_.size() && (classOf(source_[from]) & set) != 0)
    ++from;
  return from;
}

/// The first position at or behind `from` whose unit is in one of `set`, at most the end of the input.
template <typename Unit>
std::size_t BasicParser<Unit>::find(std::size_t from, std::uint8_t set) const {
  while (from < source_.size() && (classOf(source_[from]) & set) == 0)
    ++from;
  return from;
}

/// The position behind the first `unit` at or behind `from`.
template <typename Unit>
std::size_t BasicParser<Unit>::behind(Unit unit, std::size_t from) const {
  const std::size_t found = source_.find(unit, from);
  return found == View::npos ? unfinished : found + 1;
}

template <typename Unit>
bool BasicParser<Unit>::standsAt(std::size_t at, std::string_view ascii) const {
  return at <= source_.size() && equalsASCII(source_.substr(at, ascii.size()), ascii);
}

template <typename Unit>
typename BasicParser<Unit>::View BasicParser<Unit>::lowered(View name) {
  std::uint8_t found = 0;
  for (const Unit unit : name)
    found |= classOf(unit);
  if ((found & foreign) != 0) return rewritten_.emplace_back(fullyLowered(name));
  if ((found & capital) == 0) return name;
  auto& copy = rewritten_.emplace_back(name);
  std::ranges::transform(copy, copy.begin(), lowercasedASCII<Unit>);
  return copy;
}

template <typename Unit>
typename BasicParser<Unit>::View BasicParser<Unit>::decoded(View value) {
  if (value.find(Unit{'&'}) == View::npos) return value;
  return rewritten_.emplace_back(unescapeAttribute(value));
}

template class BasicParser<char32_t>;
template class BasicParser<char>;

}  // namespace tessary::PythonHTMLTitle
