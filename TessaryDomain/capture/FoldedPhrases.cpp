#include "TessaryDomain/capture/FoldedPhrases.h"

#include <algorithm>
#include <string>

#include "TessaryDomain/capture/PythonText.h"
#include "TessaryPlatform/text/TextPieces.h"

namespace tessary {

std::bitset<mostFoldedPhrases> foundPhrases(std::string_view text, const FoldedPhrases& wanted,
                                            std::size_t pieceBytes) {
  std::bitset<mostFoldedPhrases> found;
  std::string folded;
  while (!text.empty()) {
    // The fold is one scalar at a time, so that it may be cut before any scalar.
    const std::size_t end =
        pieceEnd(text, {.least = pieceBytes, .most = pieceBytes + 4}, [](char32_t) { return true; });
    // A phrase may have begun in the piece before.
    folded.erase(0, folded.size() - std::min(folded.size(), longestFoldedPhrase));
    folded += PythonText::casefold(text.substr(0, end));
    text.remove_prefix(end);
    // OPTIMIZATION: one search instead of one for each phrase that begins so.
    const bool hasCommonStart = PythonText::contains(folded, wanted.commonStart);
    for (std::size_t index = 0; index < wanted.phrases.size(); ++index) {
      const std::string_view phrase = wanted.phrases[index];
      if (found[index] || (!hasCommonStart && phrase.starts_with(wanted.commonStart))) continue;
      if (PythonText::contains(folded, phrase)) found.set(index);
    }
  }
  return found;
}

}  // namespace tessary
