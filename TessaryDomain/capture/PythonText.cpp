#include "TessaryDomain/capture/PythonText.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#include "TessaryDomain/capture/PythonPath.h"
#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/text/ByteBlock.h"

// How bytes are read here. A byte below 0x80 and the lead byte of a well-formed sequence always begin a scalar, also
// behind ill-formed bytes: no ill-formed subpart swallows a byte that could begin something. So a scalar can be looked
// for by its bytes, from the left or from the right, without decoding what lies between.

namespace tessary::PythonText {

namespace {

constexpr unsigned char byteAt(std::string_view text, std::size_t position) {
  return static_cast<unsigned char>(text[position]);
}

constexpr bool isLineEnd(char32_t scalar) {
  return (scalar >= 0x0A && scalar <= 0x0D) || (scalar >= 0x1C && scalar <= 0x1E) || scalar == 0x85 ||
         scalar == 0x2028 || scalar == 0x2029;
}

/// The bytes of the white-space scalar that begins at `position`; 0 if none does.
std::size_t spaceByteCount(std::string_view text, std::size_t position) {
  const unsigned char lead = byteAt(text, position);
  if (lead < 0x80) return isSpace(lead) ? 1 : 0;
  // U+0085 and U+00A0; U+1680; U+2000 to U+205F; U+3000.
  if (lead != 0xC2 && lead != 0xE1 && lead != 0xE2 && lead != 0xE3) return 0;
  const DecodedScalar decoded = decodeScalar(text, position);
  return isSpace(decoded.scalar) ? decoded.byteCount : 0;
}

/// The bytes of the line end that begins at `position`, U+000D U+000A taken together; 0 if none does.
std::size_t lineEndByteCount(std::string_view text, std::size_t position) {
  const unsigned char lead = byteAt(text, position);
  if (lead == '\r') return position + 1 < text.size() && text[position + 1] == '\n' ? 2 : 1;
  if (lead < 0x80) return isLineEnd(lead) ? 1 : 0;
  if (lead != 0xC2 && lead != 0xE2) return 0;
  const DecodedScalar decoded = decodeScalar(text, position);
  return isLineEnd(decoded.scalar) ? decoded.byteCount : 0;
}

/// OPTIMIZATION: of the sixteen bytes at `position`, the first that begins a line end; 16 if none does. The two bytes
/// behind them are looked at as well. Three times as fast as one byte at a time on prose.
std::size_t findLineEndInBlock(std::string_view text, std::size_t position) {
  const ByteBlock bytes = byteBlockAt(text.data() + position);
  auto lineEnds = (bytes - 0x0A < 4) | (bytes - 0x1C < 3);
  if (hasByte(bytes & 0x80)) {
    const ByteBlock second = byteBlockAt(text.data() + position + 1);
    const ByteBlock third = byteBlockAt(text.data() + position + 2);
    lineEnds |= (bytes == 0xC2) & (second == 0x85);
    lineEnds |= (bytes == 0xE2) & (second == 0x80) & ((third | 1) == 0xA9);
  }
  return firstByte(lineEnds);
}

/// The first line end at or behind `position`, or the end of the text.
std::size_t findLineEnd(std::string_view text, std::size_t position) {
  // Many a line is empty, and not worth a block.
  if (text[position] == '\n') return position;
  while (text.size() - position >= sizeof(ByteBlock) + 2) {
    const std::size_t index = findLineEndInBlock(text, position);
    position += index;
    if (index < sizeof(ByteBlock)) return position;
  }
  while (position < text.size() && lineEndByteCount(text, position) == 0)
    ++position;
  return position;
}

/// True if a line begins at `position`: the start of the text, or right behind a line end.
bool isBehindLineEnd(std::string_view text, std::size_t position) {
  if (position == 0) return true;
  const std::size_t previous = previousScalarStart(text, position);
  return lineEndByteCount(text, previous) == position - previous;
}

std::string_view stripEnd(std::string_view text) noexcept {
  while (!text.empty()) {
    const std::size_t start = previousScalarStart(text, text.size());
    if (spaceByteCount(text, start) == 0) break;
    text.remove_suffix(text.size() - start);
  }
  return text;
}

struct Fold {
  char32_t scalar;
  std::string_view folded;
};

/// Every scalar outside ASCII whose full case fold holds an ASCII letter, in ascending order.
constexpr std::array<Fold, 19> foldsIntoASCII = {{
    {0x00DF, "ss"},       // sharp s
    {0x0130, "i\u0307"},  // capital I with dot above
    {0x0149, "\u02BCn"},  // small n preceded by apostrophe
    {0x017F, "s"},        // long s
    {0x01F0, "j\u030C"},  // small j with caron
    {0x1E96, "h\u0331"},  // small h with line below
    {0x1E97, "t\u0308"},  // small t with diaeresis
    {0x1E98, "w\u030A"},  // small w with ring above
    {0x1E99, "y\u030A"},  // small y with ring above
    {0x1E9A, "a\u02BE"},  // small a with right half ring
    {0x1E9E, "ss"},       // capital sharp s
    {0x212A, "k"},        // Kelvin sign
    {0xFB00, "ff"},       // ligatures
    {0xFB01, "fi"},      {0xFB02, "fl"}, {0xFB03, "ffi"}, {0xFB04, "ffl"}, {0xFB05, "st"}, {0xFB06, "st"},
}};
static_assert(std::ranges::is_sorted(foldsIntoASCII, {}, &Fold::scalar));

/// The row of `scalar`; null if the table has none.
const Fold* foldOutsideASCII(char32_t scalar) {
  const auto* const found = std::ranges::lower_bound(foldsIntoASCII, scalar, {}, &Fold::scalar);
  return found != foldsIntoASCII.end() && found->scalar == scalar ? found : nullptr;
}

/// True for the first bytes of the scalars in the table, which few other scalars begin with.
constexpr bool leadsFoldIntoASCII(unsigned char byte) {
  return (byte >= 0xC3 && byte <= 0xC7) || byte == 0xE1 || byte == 0xE2 || byte == 0xEF;
}

/// Of the sixteen bytes at `position`, the first that may begin a scalar of the table, judged by two or three bytes; 16
/// if none does. All scalars of the table are found. The two bytes behind them are looked at as well.
std::size_t findFoldIntoASCIIInBlock(std::string_view text, std::size_t position) {
  const ByteBlock first = byteBlockAt(text.data() + position);
  // OPTIMIZATION: most scripts have no such first byte (`leadsFoldIntoASCII`) at all, and take no second look.
  if (!hasByte((first - 0xC3 < 5) | (first - 0xE1 < 2) | (first == 0xEF))) return sizeof(ByteBlock);
  const ByteBlock second = byteBlockAt(text.data() + position + 1);
  const ByteBlock third = byteBlockAt(text.data() + position + 2);
  const auto found = ((first == 0xC3) & (second == 0x9F)) | (((first == 0xC4) | (first == 0xC7)) & (second == 0xB0)) |
                     ((first == 0xC5) & ((second == 0x89) | (second == 0xBF))) |
                     ((first == 0xE1) & (second == 0xBA) & (third - 0x96 < 9)) |
                     ((first == 0xE2) & (second == 0x84) & (third == 0xAA)) |
                     ((first == 0xEF) & (second == 0xAC) & (third < 0x87));
  return firstByte(found);
}

/// True if the sixty-four bytes at `position` are ASCII.
bool areFourBlocksASCII(std::string_view text, std::size_t position) {
  constexpr std::size_t size = sizeof(ByteBlock);
  const char* const at = text.data() + position;
  const ByteBlock front = byteBlockAt(at) | byteBlockAt(at + size);
  const ByteBlock back = byteBlockAt(at + 2 * size) | byteBlockAt(at + 3 * size);
  return !hasByte((front | back) & 0x80);
}

/// The first place at or behind `position` where a scalar begins that the table holds, or the end of the text.
std::size_t findFoldIntoASCII(std::string_view text, std::size_t position) {
  const auto isFoldAt = [text](std::size_t index) {
    return leadsFoldIntoASCII(byteAt(text, index)) && foldOutsideASCII(decodeScalar(text, index).scalar) != nullptr;
  };
  // OPTIMIZATION: many bytes at once, nearly all of which hold none.
  while (text.size() - position >= sizeof(ByteBlock) + 2) {
    if (text.size() - position >= 4 * sizeof(ByteBlock) && areFourBlocksASCII(text, position)) {
      position += 4 * sizeof(ByteBlock);
      continue;
    }
    const std::size_t index = findFoldIntoASCIIInBlock(text, position);
    position += index;
    if (index == sizeof(ByteBlock)) continue;
    if (isFoldAt(position)) return position;
    ++position;
  }
  while (position < text.size() && !isFoldAt(position))
    ++position;
  return position;
}

/// Makes the ASCII letters from `position` on small.
void foldASCII(std::string& text, std::size_t position) {
  // OPTIMIZATION: sixteen bytes at once; with the search above ten times as fast as one scalar at a time.
  for (; text.size() - position >= sizeof(ByteBlock); position += sizeof(ByteBlock)) {
    ByteBlock bytes = byteBlockAt(text.data() + position);
    const auto capitals = bytes - 'A' < 26;
    bytes |= std::bit_cast<ByteBlock>(capitals) & 0x20;
    std::memcpy(text.data() + position, &bytes, sizeof bytes);
  }
  for (; position < text.size(); ++position)
    text[position] = lowercasedASCII(text[position]);
}

/// Writes the root of a path and its components joined with "/" after ".." has taken back what it takes back, and gives
/// their length, which is no greater than the path's. `output` is the list of components in the form in which it is
/// wanted: an entry is pushed behind a slash and popped back to one.
std::size_t writeNormalised(std::string_view path, char* output) {
  const auto [root, rest] = PythonPath::splitRoot(path);
  std::size_t length = root.copy(output, root.size());
  // What ".." cannot take back: the root, or the run of ".." that a relative path may begin with.
  std::size_t fixed = length;
  for (std::size_t position = 0; position < rest.size(); ++position) {
    // The component is pushed while its end is looked for, and taken back where it adds nothing.
    const std::size_t before = length;
    if (length > root.size()) output[length++] = '/';
    const std::size_t start = position;
    while (position < rest.size() && rest[position] != '/')
      output[length++] = rest[position++];
    const std::string_view component = rest.substr(start, position - start);
    if (component.empty() || component == ".") {
      length = before;
    } else if (component == "..") {
      if (before == fixed && root.empty()) {
        fixed = length;
        continue;
      }
      length = before;
      while (length > fixed && output[--length] != '/')
        continue;
    }
  }
  return length;
}

}  // namespace

std::string_view stripStart(std::string_view text) noexcept {
  while (!text.empty()) {
    const std::size_t byteCount = spaceByteCount(text, 0);
    if (byteCount == 0) break;
    text.remove_prefix(byteCount);
  }
  return text;
}

std::string_view strip(std::string_view text) noexcept {
  return stripEnd(stripStart(text));
}

std::vector<std::string_view> split(std::string_view text) {
  std::vector<std::string_view> pieces;
  std::size_t position = 0;
  while (position < text.size()) {
    if (const std::size_t space = spaceByteCount(text, position); space != 0) {
      position += space;
      continue;
    }
    const std::size_t start = position;
    while (position < text.size() && spaceByteCount(text, position) == 0)
      ++position;
    pieces.push_back(text.substr(start, position - start));
  }
  return pieces;
}

std::string_view takeLine(std::string_view& text) noexcept {
  const std::size_t end = findLineEnd(text, 0);
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end < text.size() ? end + lineEndByteCount(text, end) : end);
  return line;
}

std::vector<std::string_view> splitlines(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty())
    lines.push_back(takeLine(text));
  return lines;
}

std::vector<std::string_view> linesBeginning(std::string_view text, std::string_view prefix) {
  std::vector<std::string_view> lines;
  for (std::size_t start = text.find(prefix); start < text.size(); start = text.find(prefix, start)) {
    if (!isBehindLineEnd(text, start)) {
      ++start;
      continue;
    }
    const std::size_t end = findLineEnd(text, start);
    lines.push_back(text.substr(start, end - start));
    start = end;
  }
  return lines;
}

std::vector<std::u32string_view> splitlines(std::u32string_view scalars) {
  std::vector<std::u32string_view> lines;
  std::size_t position = 0;
  while (position < scalars.size()) {
    std::size_t end = position;
    while (end < scalars.size() && !isLineEnd(scalars[end]))
      ++end;
    lines.push_back(scalars.substr(position, end - position));
    position = end + (scalars.substr(end).starts_with(U"\r\n") ? 2 : 1);
  }
  return lines;
}

std::vector<std::string_view> components(std::string_view text, char32_t separator) {
  std::string separatorBytes;
  appendScalar(separatorBytes, separator);
  const bool isScalar = decodeScalar(separatorBytes, 0).scalar == separator;
  std::vector<std::string_view> pieces;
  std::size_t start = 0;
  std::size_t end = isScalar ? text.find(separatorBytes) : std::string_view::npos;
  while (end != std::string_view::npos) {
    pieces.push_back(text.substr(start, end - start));
    start = end + separatorBytes.size();
    end = text.find(separatorBytes, start);
  }
  pieces.push_back(text.substr(start));
  return pieces;
}

bool foldsWithinASCII(std::string_view text) noexcept {
  return findFoldIntoASCII(text, 0) == text.size();
}

std::string casefold(std::string_view text) {
  std::string folded;
  folded.reserve(text.size());
  std::size_t position = 0;
  while (position < text.size()) {
    // What folds within ASCII or stays is copied as a whole.
    const std::size_t end = findFoldIntoASCII(text, position);
    const std::size_t start = folded.size();
    folded.append(text, position, end - position);
    foldASCII(folded, start);
    position = end;
    if (position == text.size()) break;
    const DecodedScalar decoded = decodeScalar(text, position);
    folded += foldOutsideASCII(decoded.scalar)->folded;
    position += decoded.byteCount;
  }
  return folded;
}

std::string_view casefold(std::string_view text, std::string& storage) {
  if (std::ranges::none_of(text, [](char byte) { return isASCIIUppercase(byte) || (byte & 0x80) != 0; })) return text;
  storage = casefold(text);
  return storage;
}

bool isNormalAbsolute(std::string_view text) noexcept {
  if (text.empty() || text.front() != '/') return false;
  // Each slash is looked at with what follows it: the component must not be "", "." or "..".
  std::size_t slash = 0;
  while (slash != std::string_view::npos) {
    std::size_t position = slash + 1;
    for (int dots = 0; dots < 2 && position < text.size() && text[position] == '.'; ++dots)
      ++position;
    if (position == text.size() || text[position] == '/') return false;
    slash = text.find('/', position);
  }
  return true;
}

std::string_view normpath(std::string_view text, std::string& storage) {
  // 1. Nothing is the folder that one stands in.
  if (text.empty()) return ".";
  // 2. OPTIMIZATION: the common path is clean and absolute, and comes back as it is, without an allocation.
  if (isNormalAbsolute(text)) return text;
  // 3.-5. What comes to nothing is again the folder that one stands in.
  storage.resize_and_overwrite(text.size(),
                               [text](char* output, std::size_t) { return writeNormalised(text, output); });
  return storage.empty() ? std::string_view(".") : std::string_view(storage);
}

std::string normpath(std::string_view text) {
  std::string storage;
  const std::string_view normal = normpath(text, storage);
  if (normal.data() == storage.data()) return storage;
  return std::string(normal);
}

bool hasPrefix(std::string_view text, std::string_view prefix) noexcept {
  return text.starts_with(prefix);
}

bool hasSuffix(std::string_view text, std::string_view suffix) noexcept {
  return text.ends_with(suffix);
}

bool equal(std::string_view a, std::string_view b) noexcept {
  return a == b;
}

bool contains(std::string_view text, std::string_view needle) noexcept {
  // Not `find`, which is quadratic on a long needle that nearly matches everywhere.
  if (needle.empty()) return true;
  // An empty text may have no bytes to point to, which `memmem` must not be given.
  return !text.empty() && memmem(text.data(), text.size(), needle.data(), needle.size()) != nullptr;
}

bool contains(std::u32string_view scalars, std::u32string_view needle) noexcept {
  return scalars.find(needle) != std::u32string_view::npos;
}

std::string_view prefix(std::string_view text, std::size_t count) noexcept {
  // No scalar has less than a byte.
  if (count >= text.size()) return text;
  std::size_t position = 0;
  for (; count > 0 && position < text.size(); --count)
    position += byteAt(text, position) < 0x80 ? std::size_t{1} : decodeScalar(text, position).byteCount;
  return text.substr(0, position);
}

std::string string(std::u32string_view scalars) {
  return toUTF8(scalars);
}

RegularExpression expression(std::string_view pattern) {
  return RegularExpression(pattern);
}

}  // namespace tessary::PythonText
