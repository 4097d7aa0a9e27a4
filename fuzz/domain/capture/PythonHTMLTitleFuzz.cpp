// The HTML scanner on any bytes: positions rise and stay inside, scalars and UTF-8 give the same events, and what is
// known before the end of the input is known stays true behind it.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "TessaryDomain/capture/PythonHTMLTitle.h"
#include "TessaryPlatform/text/UTF8.h"
#include "support/Require.h"

namespace {

using namespace tessary;

using tessary::testing::require;

std::string utf8(std::string_view text) {
  return std::string(text);
}
std::string utf8(std::u32string_view text) {
  return toUTF8(text);
}

template <typename Unit>
std::vector<std::string> events(std::basic_string_view<Unit> html, bool end) {
  using Parser = PythonHTMLTitle::BasicParser<Unit>;
  std::vector<std::string> written;
  std::size_t position = 0;
  Parser parser(html);
  parser.run(end, [&](const typename Parser::Event& event) {
    if (const auto* start = std::get_if<typename Parser::Start>(&event)) {
      require(!start->tag.empty());
      written.push_back("S" + utf8(start->tag));
      for (const auto& attribute : start->attributes) {
        require(!attribute.name.empty());
        written.push_back("A" + utf8(attribute.name));
        if (attribute.value) written.push_back("V" + utf8(*attribute.value));
      }
    } else if (const auto* endTag = std::get_if<typename Parser::End>(&event)) {
      require(!endTag->tag.empty());
      written.push_back("E" + utf8(endTag->tag));
    } else {
      const auto& text = std::get<PythonHTMLTitle::Text>(event);
      require(position <= text.begin && text.begin < text.end && text.end <= parser.source().size());
      position = text.end;
      written.push_back((text.decode ? "D" : "T") + utf8(parser.slice(text)));
    }
  });
  return written;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view html(reinterpret_cast<const char*>(data), size);
  const std::u32string scalars = toScalars(html);
  const auto closed = events<char>(html, true);
  const auto fed = events<char>(html, false);
  require(events<char32_t>(scalars, true) == closed);
  require(events<char32_t>(scalars, false) == fed);
  require(fed.size() <= closed.size() && std::vector(closed.begin(), closed.begin() + std::ssize(fed)) == fed);
  require(isWellFormedUTF8(PythonHTMLTitle::text(html)));
  for (const auto& reference : PythonHTMLTitle::resourceReferences(html))
    require(!reference.reference.empty() && (reference.kind == "image" || reference.kind == "css"));
  return 0;
}
