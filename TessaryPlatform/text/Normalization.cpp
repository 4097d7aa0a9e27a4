#include "TessaryPlatform/text/Normalization.h"

#include <algorithm>
#include <array>
#include <memory>
#include <mutex>
#include <numeric>

#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/translit.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>

#include "TessaryPlatform/text/TextPieces.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {

namespace {

/// ICU's transform and the lock that it needs: it promises nothing about use by two threads at once.
struct LatinASCII {
  std::mutex lock;
  std::unique_ptr<icu::Transliterator> transform;

  LatinASCII() {
    UErrorCode status = U_ZERO_ERROR;
    transform.reset(icu::Transliterator::createInstance("Latin-ASCII", UTRANS_FORWARD, status));
    if (U_FAILURE(status)) transform.reset();
  }
};

/// How many marks ICU is left to sort, which it does by insertion.
constexpr std::size_t longestUnsortedRun = 32;

bool isMark(char32_t scalar) {
  return u_getIntPropertyValue(static_cast<UChar32>(scalar), UCHAR_LEAD_CANONICAL_COMBINING_CLASS) != 0;
}

void appendDecomposed(std::u32string& scalars, char32_t scalar, const icu::Normalizer2& normalizer) {
  icu::UnicodeString parts;
  if (!normalizer.getDecomposition(static_cast<UChar32>(scalar), parts)) {
    scalars.push_back(scalar);
    return;
  }
  for (int32_t index = 0; index < parts.length(); index = parts.moveIndex32(index, 1))
    scalars.push_back(static_cast<char32_t>(parts.char32At(index)));
}

/// Appends marks by combining class, those of one class in the order in which they stand: a counting sort.
void appendInCanonicalOrder(std::u32string& sorted, const std::u32string& run) {
  std::array<std::size_t, 257> places{};
  for (const char32_t mark : run)
    ++places[u_getCombiningClass(static_cast<UChar32>(mark)) + 1U];
  places[0] = sorted.size();
  std::partial_sum(places.begin(), places.end(), places.begin());
  sorted.resize(sorted.size() + run.size());
  for (const char32_t mark : run)
    sorted[places[u_getCombiningClass(static_cast<UChar32>(mark))]++] = mark;
}

/// Puts every long run of marks into canonical order (The Unicode Standard, section 3.11), which changes no normal
/// form. ICU takes quadratic time over a run that is out of order: five seconds for a hundred thousand marks.
std::u32string withLongRunsSorted(std::string_view text, const icu::Normalizer2& normalizer, auto isSortedMark) {
  const std::u32string scalars = toScalars(text);
  std::u32string sorted;
  sorted.reserve(scalars.size());
  std::u32string run;
  for (auto start = scalars.begin(); start != scalars.end();) {
    const auto end = isSortedMark(*start) ? std::find_if_not(start, scalars.end(), isSortedMark) : start + 1;
    if (static_cast<std::size_t>(end - start) <= longestUnsortedRun) {
      sorted.append(start, end);
    } else {
      run.clear();
      std::for_each(start, end, [&](char32_t scalar) { appendDecomposed(run, scalar, normalizer); });
      appendInCanonicalOrder(sorted, run);
    }
    start = end;
  }
  return sorted;
}

bool hasLongRun(std::string_view text, auto isSortedMark) {
  std::size_t run = 0;
  for (const char32_t scalar : ScalarView(text)) {
    // No scalar below U+0300 is a mark.
    run = scalar >= 0x300 && isSortedMark(scalar) ? run + 1 : 0;
    if (run > longestUnsortedRun) return true;
  }
  return false;
}

/// The marks that "Latin-ASCII" touches. It sees text as runs of the scripts that it is for, and puts the marks of
/// each run in order apart from the rest.
bool isLatinMark(char32_t scalar) {
  if (!isMark(scalar)) return false;
  UErrorCode status = U_ZERO_ERROR;
  const UScriptCode script = uscript_getScript(static_cast<UChar32>(scalar), &status);
  return script == USCRIPT_LATIN || script == USCRIPT_COMMON || script == USCRIPT_INHERITED;
}

/// "Latin-ASCII" decomposes the text, takes the marks behind Latin letters and digits away, composes the text again and
/// then replaces single scalars. So all that looks at a neighbour are normalization and marks.
constexpr PieceSize latinPieces{.least = 1024, .most = std::size_t{1} << 28};

}  // namespace

std::string normalizedToFormCInPieces(std::string_view text, PieceSize size) {
  if (isASCII(text)) return std::string(text);
  if (!isWellFormedUTF8(text)) return normalizedToFormCInPieces(repairedUTF8(text), size);
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* normalizer = icu::Normalizer2::getNFCInstance(status);
  // Form C is compiled into ICU's code; it can fail for want of memory only.
  if (U_FAILURE(status)) return std::string(text);
  std::string ordered;
  if (hasLongRun(text, isMark)) text = ordered = toUTF8(withLongRunsSorted(text, *normalizer, isMark));
  std::string normalized;
  icu::StringByteSink<std::string> sink(&normalized);
  const auto mayBegin = [&](char32_t scalar) { return normalizer->hasBoundaryBefore(static_cast<UChar32>(scalar)); };
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view piece = rest.substr(0, pieceEnd(rest, size, mayBegin));
    normalizer->normalizeUTF8(0, icu::StringPiece(piece), sink, nullptr, status);
    rest.remove_prefix(piece.size());
  }
  return U_SUCCESS(status) ? normalized : std::string(text);
}

std::string normalizedToFormC(std::string_view text) {
  return normalizedToFormCInPieces(text, longestPieces);
}

std::optional<std::string> latinToASCIIInPieces(std::string_view text, PieceSize size) {
  static LatinASCII latinASCII;
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* normalizer = icu::Normalizer2::getNFCInstance(status);
  if (U_FAILURE(status) || !latinASCII.transform) return std::nullopt;
  if (!isWellFormedUTF8(text)) return latinToASCIIInPieces(repairedUTF8(text), size);
  std::string ordered;
  if (hasLongRun(text, isLatinMark)) text = ordered = toUTF8(withLongRunsSorted(text, *normalizer, isLatinMark));
  const auto mayBegin = [&](char32_t scalar) {
    const auto point = static_cast<UChar32>(scalar);
    return normalizer->hasBoundaryBefore(point) && u_charType(point) != U_NON_SPACING_MARK;
  };
  std::string result;
  const std::scoped_lock guard(latinASCII.lock);
  while (!text.empty()) {
    const std::string_view piece = text.substr(0, pieceEnd(text, size, mayBegin));
    icu::UnicodeString transformed = icu::UnicodeString::fromUTF8(icu::StringPiece(piece));
    latinASCII.transform->transliterate(transformed);
    transformed.toUTF8String(result);
    text.remove_prefix(piece.size());
  }
  return result;
}

std::optional<std::string> latinToASCII(std::string_view text) {
  return latinToASCIIInPieces(text, latinPieces);
}

}  // namespace tessary
