#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

#include "TessaryPlatform/text/GraphemeClusters.h"
#include "TessaryPlatform/text/UTF8.h"
#include "support/Require.h"

// Any bytes: the characters cover the text, are the same in both directions and by number, and begin where ICU's do.

namespace {

using tessary::testing::require;

/// How many characters ICU sees.
std::size_t countByICU(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  static const std::unique_ptr<icu::BreakIterator> iterator(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  const icu::UnicodeString units = icu::UnicodeString::fromUTF8(tessary::repairedUTF8(text));
  iterator->setText(units);
  std::size_t count = 0;
  for (iterator->first(); iterator->next() != icu::BreakIterator::DONE;)
    ++count;
  return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::vector<std::string_view> characters = tessary::characters(text);
  require(tessary::characterCount(text) == characters.size());
  require(countByICU(text) == characters.size());
  std::size_t position = 0;
  for (const std::string_view character : characters) {
    require(!character.empty() && character.data() == text.data() + position);
    position += character.size();
  }
  require(position == size);
  const tessary::CharacterView view(text);
  auto character = view.end();
  for (std::size_t index = characters.size(); index > 0; --index) {
    require(tessary::previousCharacterStart(text, character.position()) == (--character).position());
    require(*character == characters[index - 1]);
  }
  require(character == view.begin());
  for (std::size_t count = 0; count <= 20; ++count) {
    const std::string_view prefix = tessary::characterPrefix(text, count);
    require(prefix.size() ==
            (count < characters.size() ? static_cast<std::size_t>(characters[count].data() - text.data()) : size));
  }
  return 0;
}
