#include "TessaryDomain/capture/FoldedPhrases.h"

#include <string>

#include "TessaryDomain/capture/PythonText.h"
#include "TessaryPlatform/text/ASCII.h"
#include "TessaryPlatform/text/TextPieces.h"

// How all phrases are looked for at once (Wu and Manber, "A fast algorithm for multi-pattern searching", 1994). A
// window as long as the shortest phrase moves over the text. Only its last four bytes are looked at, and a table says
// how far before the window's end these four stand at the latest in the first bytes of any phrase: so far the window
// may move, and as far as it is long, less three, where they stand in none. Let "do not redo" and "already told user"
// be looked for. The window has 11 bytes:
//
//     The quick brown fox jumps
//     ...........               ends with " bro", which stands nowhere: on by 8
//             ...........       ends with "ox j": on by 8
//
// Where the four are the last of the window in a phrase, the phrases are compared with the text from the window's
// start. Most text is passed over by eight or more bytes for one look into the table; a text that is made of the
// beginnings of phrases is compared at every byte, which is still linear, as phrases have a limited length.
//
// The case of a letter does not change its place in the table, so that text needs no fold before the search, unless it
// holds one of the few scalars outside ASCII that fold into it.

namespace tessary {

namespace {

bool beginsWith(std::string_view text, std::string_view phrase) {
  if (text.size() < phrase.size()) return false;
  for (std::size_t index = 0; index < phrase.size(); ++index) {
    if (lowercasedASCII(text[index]) != phrase[index]) return false;
  }
  return true;
}

}  // namespace

void FoldedPhrases::findIn(std::string_view text, std::bitset<mostFoldedPhrases>& found) const {
  for (std::size_t end = window_; end <= text.size();) {
    const std::size_t cut = cuts_[hash(text.data() + end - groupBytes)];
    end += longestLeap_;
    // OPTIMIZATION: the next place is known before the table has answered, which makes the search three times as fast.
    if (cut == 0) [[likely]]
      continue;
    end -= cut;
    if (cut != longestLeap_) continue;
    for (std::size_t index = 0; index < phrases_.size(); ++index) {
      if (!found[index] && beginsWith(text.substr(end - window_), phrases_[index])) found.set(index);
    }
    ++end;
  }
}

std::bitset<mostFoldedPhrases> foundPhrases(std::string_view text, const FoldedPhrases& wanted,
                                            std::size_t pieceBytes) {
  std::bitset<mostFoldedPhrases> found;
  // OPTIMIZATION: nearly all text is searched as it stands, and never folded.
  if (PythonText::foldsWithinASCII(text)) {
    wanted.findIn(text, found);
    return found;
  }
  std::string folded;
  while (!text.empty()) {
    // The fold is one scalar at a time, so that it may be cut before any scalar.
    const std::size_t end =
        pieceEnd(text, {.least = pieceBytes, .most = pieceBytes + 4}, [](char32_t) { return true; });
    // A phrase may have begun in the piece before.
    folded.erase(0, folded.size() - std::min(folded.size(), longestFoldedPhrase));
    folded += PythonText::casefold(text.substr(0, end));
    text.remove_prefix(end);
    wanted.findIn(folded, found);
  }
  return found;
}

}  // namespace tessary
