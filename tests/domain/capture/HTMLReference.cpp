// The slow reading of the scanner's rules that the scanner is held to. Clarity is all that counts here.

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "TessaryDomain/capture/HTMLEntities.h"
#include "TessaryDomain/capture/PythonText.h"
#include "TessaryPlatform/text/Casing.h"
#include "TessaryPlatform/text/UTF8.h"

#include "HTMLEvents.h"

namespace tessary {

namespace {

using Scalars = std::u32string;
using Position = std::optional<std::size_t>;  // absent: the end was not found

Scalars lower(const Scalars& text) {
  return toScalars(lowercased(toUTF8(text)));
}

bool isOneOf(char32_t scalar, const Scalars& set) {
  return set.find(scalar) != set.npos;
}

const Scalars white = U"\t\n\r\f ";
const Scalars letters = U"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
const Scalars digits = U"0123456789";
const Scalars hexadecimals = U"0123456789abcdefABCDEF";

/// A character reference: what stands for it and how long it is.
struct Decoded {
  Scalars text;
  std::size_t length;
};

Scalars number(const Scalars& numerals, unsigned base) {
  double value = 0;  // exact as far as it matters, and any size
  for (const char32_t numeral : numerals)
    value =
        value * base + static_cast<double>(isOneOf(numeral, digits) ? numeral - U'0' : (numeral | 0x20) - U'a' + 10);
  if (value > 0x10FFFF) return U"\uFFFD";
  const auto scalar = static_cast<char32_t>(value);
  static const std::map<char32_t, char32_t> replacements = {
      {0x00, 0xFFFD}, {0x0D, 0x0D},   {0x80, 0x20AC}, {0x81, 0x81},   {0x82, 0x201A}, {0x83, 0x192},  {0x84, 0x201E},
      {0x85, 0x2026}, {0x86, 0x2020}, {0x87, 0x2021}, {0x88, 0x2C6},  {0x89, 0x2030}, {0x8A, 0x160},  {0x8B, 0x2039},
      {0x8C, 0x152},  {0x8D, 0x8D},   {0x8E, 0x17D},  {0x8F, 0x8F},   {0x90, 0x90},   {0x91, 0x2018}, {0x92, 0x2019},
      {0x93, 0x201C}, {0x94, 0x201D}, {0x95, 0x2022}, {0x96, 0x2013}, {0x97, 0x2014}, {0x98, 0x2DC},  {0x99, 0x2122},
      {0x9A, 0x161},  {0x9B, 0x203A}, {0x9C, 0x153},  {0x9D, 0x9D},   {0x9E, 0x17E},  {0x9F, 0x178}};
  if (replacements.contains(scalar)) return {replacements.at(scalar)};
  if (scalar >= 0xD800 && scalar <= 0xDFFF) return U"\uFFFD";
  if ((scalar >= 0xFDD0 && scalar <= 0xFDEF) || (scalar >= 1 && scalar <= 8) || scalar == 0xB ||
      (scalar >= 0xE && scalar <= 0x1F) || (scalar >= 0x7F && scalar <= 0x9F) || (scalar & 0xFFFF) >= 0xFFFE)
    return {};
  return {scalar};
}

Position named(const Scalars& name, Scalars& expansion) {
  const auto* entity = HTMLEntities::find(toUTF8(name));
  if (entity == nullptr) return std::nullopt;
  expansion = {entity->first};
  if (entity->second != 0) expansion.push_back(entity->second);
  return name.size();
}

Decoded characterReference(const Scalars& text, std::size_t at, bool isAttribute) {
  const Scalars rest = text.substr(at + 1);
  // A number.
  if (rest.starts_with(U'#')) {
    const bool isHexadecimal = rest.size() > 1 && isOneOf(rest[1], U"xX");
    const std::size_t start = isHexadecimal ? 2 : 1;
    const std::size_t stop =
        std::min(rest.find_first_not_of(isHexadecimal ? hexadecimals : digits, start), rest.size());
    if (stop > start) {
      const bool isClosed = stop < rest.size() && rest[stop] == U';';
      return {number(rest.substr(start, stop - start), isHexadecimal ? 16 : 10), stop + 1 + (isClosed ? 1U : 0U)};
    }
  }
  // A name.
  Scalars name = rest.substr(0, std::min({rest.find_first_of(U"\t\n\f <&#;"), rest.size(), std::size_t{32}}));
  if (!name.empty() && name.size() < rest.size() && rest[name.size()] == U';') name.push_back(U';');
  Scalars expansion;
  std::size_t length = name.size();
  if (!named(name, expansion)) {
    if (length > 0) --length;
    while (length >= 2 && !named(name.substr(0, length), expansion))
      --length;
    if (length < 2) return {U"&", 1};
  }
  const bool isClosed = name[length - 1] == U';';
  if (isAttribute && !isClosed && length < rest.size() && isOneOf(rest[length], U"=" + letters + digits))
    return {U"&", 1};
  return {expansion, length + 1};
}

class Reader {
 public:
  Reader(Scalars text, bool end) : text_(std::move(text)), end_(end) {}

  HTMLEvents run() {
    std::size_t i = 0;
    while (i < text_.size()) {
      std::size_t j = text_.size();
      if (raw_.empty()) {
        j = std::min(text_.find(U'<', i), text_.size());
        if (j == text_.size() && !end_ && isCutOff(i)) return events_;
      } else if (raw_ != U"plaintext") {
        const Position found = rawTextEnd(i);
        if (!found) break;
        j = *found;
      }
      emitText(i, j, raw_.empty() || escapable_);
      i = j;
      if (i == text_.size()) break;
      const Position next = step(i);
      if (!next && !end_) return events_;
      if (!next && text_.substr(i) == U"</") emitText(i, text_.size(), false);
      i = next.value_or(text_.size());
    }
    if (end_) emitText(i, text_.size(), raw_.empty() || escapable_);
    return events_;
  }

 private:
  bool isCutOff(std::size_t i) const {
    const std::size_t tail = std::max(i, text_.size() - std::min<std::size_t>(text_.size(), 34));
    const std::size_t ampersand = text_.substr(tail).rfind(U'&');
    if (ampersand == text_.npos) return false;
    return text_.substr(tail + ampersand).find_first_of(white + U";") == text_.npos;
  }

  void emitText(std::size_t from, std::size_t to, bool decode) {
    if (from >= to) return;
    const Scalars text = text_.substr(from, to - from);
    events_.push_back("T" + toUTF8(decode ? referenceUnescape(text, false) : text));
  }

  bool has(std::size_t at, const Scalars& piece) const {
    return text_.substr(std::min(at, text_.size())).starts_with(piece);
  }

  Position behind(const Scalars& piece, std::size_t from) const {
    const std::size_t found = text_.find(piece, from);
    return found == text_.npos ? Position() : Position(found + piece.size());
  }

  Position rawTextEnd(std::size_t from) const {
    for (std::size_t at = from; at < text_.size(); ++at) {
      const std::size_t nameEnd = at + 2 + raw_.size();
      if (has(at, U"</") && nameEnd < text_.size() && lower(text_.substr(at + 2, raw_.size())) == raw_ &&
          isOneOf(text_[nameEnd], white + U"/>"))
        return at;
    }
    return std::nullopt;
  }

  Position step(std::size_t i) {
    if (i + 1 < text_.size() && isOneOf(text_[i + 1], letters)) return startTag(i);
    if (has(i, U"</")) return endTag(i);
    if (has(i, U"<!--")) return comment(i);
    if (has(i, U"<?")) return behind(U">", i + 2);
    if (has(i, U"<!")) return declaration(i);
    if (i + 1 == text_.size() && !end_) return std::nullopt;
    emitText(i, i + 1, false);
    return i + 1;
  }

  std::size_t over(std::size_t at, const Scalars& set) const {
    return std::min(text_.find_first_not_of(set, at), text_.size());
  }
  std::size_t until(std::size_t at, const Scalars& set) const {
    return std::min(text_.find_first_of(set, at), text_.size());
  }

  struct Attribute {
    Scalars name;
    std::optional<Scalars> value;
    std::size_t end;
  };

  Attribute attribute(std::size_t at) const {
    const std::size_t nameEnd = until(at + 1, white + U"/=>");
    Attribute read{text_.substr(at, nameEnd - at), std::nullopt, nameEnd};
    std::size_t value = over(nameEnd, white);
    if (!has(value, U"=")) return read;
    value = over(value + 1, white);
    if (has(value, U"'") || has(value, U"\"")) {
      const std::size_t closing = text_.find(text_[value], value + 1);
      read.end = closing == text_.npos ? text_.size() : closing + 1;
      read.value = text_.substr(value + 1, closing == text_.npos ? closing : closing - value - 1);
    } else {
      read.end = until(value, white + U">");
      read.value = text_.substr(value, read.end - value);
    }
    return read;
  }

  std::size_t tagEnd(std::size_t from) const {
    std::size_t at = until(from, white + U"/>");
    while (true) {
      at = over(at, white + U"/");
      if (at == text_.size()) return at;
      if (text_[at] == U'>') return at + 1;
      at = attribute(at).end;
    }
  }

  std::size_t skipTagSpace(std::size_t at, std::size_t stop) const {
    while (at < stop && isOneOf(text_[at], white + U"/") && !has(at, U"/>"))
      ++at;
    return at;
  }

  Position startTag(std::size_t i) {
    const std::size_t e = tagEnd(i + 1);
    if (text_[e - 1] != U'>') return std::nullopt;
    std::size_t at = until(i + 2, white + U"/>");
    const Scalars tag = lower(text_.substr(i + 1, at - i - 1));
    std::vector<Attribute> attributes;
    at = skipTagSpace(at, e);
    while (at < e && text_[at] != U'>' && !has(at, U"/>")) {
      attributes.push_back(attribute(at));
      at = skipTagSpace(attributes.back().end, e);
    }
    const std::string rest = toUTF8(text_.substr(at, e - at));
    const std::string_view close = PythonText::strip(rest);
    if (close != ">" && close != "/>") {
      emitText(i, e, false);
      return e;
    }
    events_.push_back("S" + toUTF8(tag));
    for (const Attribute& read : attributes) {
      events_.push_back("A" + toUTF8(lower(read.name)));
      if (read.value) events_.push_back("V" + toUTF8(referenceUnescape(*read.value, true)));
    }
    if (close == "/>") {
      events_.push_back("E" + toUTF8(tag));
      return e;
    }
    static const std::set<Scalars> opaque = {U"script",  U"style",    U"xmp",      U"iframe",
                                             U"noembed", U"noframes", U"plaintext"};
    static const std::set<Scalars> escapable = {U"textarea", U"title"};
    if (opaque.contains(tag) || escapable.contains(tag)) raw_ = tag;
    escapable_ = escapable.contains(tag);
    return e;
  }

  Position endTag(std::size_t i) {
    if (!behind(U">", i + 2)) return std::nullopt;
    if (has(i, U"</>")) return i + 3;
    if (!isOneOf(text_[i + 2], letters)) return behind(U">", i + 2);
    const std::size_t e = tagEnd(i + 2);
    if (text_[e - 1] != U'>') return std::nullopt;
    const std::size_t nameEnd = until(i + 3, white + U"/>");
    events_.push_back("E" + toUTF8(lower(text_.substr(i + 2, nameEnd - i - 2))));
    raw_.clear();
    return e;
  }

  Position comment(std::size_t i) const {
    if (has(i + 4, U">")) return i + 5;
    if (has(i + 4, U"->")) return i + 6;
    const Position usual = behind(U"-->", i + 4);
    const Position odd = behind(U"--!>", i + 4);
    if (usual && odd) return std::min(*usual, *odd);
    return usual ? usual : odd;
  }

  Position declaration(std::size_t i) const {
    if (has(i, U"<![CDATA[")) return behind(U"]]>", i + 9);
    if (lower(text_.substr(i, 9)) == U"<!doctype") return behind(U">", i + 9);
    return behind(U">", i + 2);
  }

  Scalars text_;
  bool end_;
  Scalars raw_;
  bool escapable_ = false;
  HTMLEvents events_;
};

}  // namespace

std::u32string referenceUnescape(const std::u32string& text, bool isAttribute) {
  Scalars decoded;
  for (std::size_t at = 0; at < text.size();) {
    if (text[at] != U'&') {
      decoded.push_back(text[at++]);
      continue;
    }
    const Decoded reference = characterReference(text, at, isAttribute);
    decoded += reference.text;
    at += reference.length;
  }
  return decoded;
}

HTMLEvents referenceEvents(std::string_view html, bool end) {
  return Reader(toScalars(html), end).run();
}

}  // namespace tessary
