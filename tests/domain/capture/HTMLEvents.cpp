#include "HTMLEvents.h"

#include "TessaryDomain/capture/PythonHTMLTitle.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary {

namespace {

std::string utf8(std::u32string_view text) {
  return toUTF8(text);
}
std::string utf8(std::string_view text) {
  return std::string(text);
}

template <typename Unit>
HTMLEvents collect(std::basic_string_view<Unit> html, bool end) {
  using Parser = PythonHTMLTitle::BasicParser<Unit>;
  HTMLEvents events;
  Parser parser(html);
  parser.run(end, [&](const typename Parser::Event& event) {
    if (const auto* start = std::get_if<typename Parser::Start>(&event)) {
      events.push_back("S" + utf8(start->tag));
      for (const auto& attribute : start->attributes) {
        events.push_back("A" + utf8(attribute.name));
        if (attribute.value) events.push_back("V" + utf8(*attribute.value));
      }
    } else if (const auto* endTag = std::get_if<typename Parser::End>(&event)) {
      events.push_back("E" + utf8(endTag->tag));
    } else {
      const auto& text = std::get<PythonHTMLTitle::Text>(event);
      const auto slice = parser.slice(text);
      events.push_back("T" + (text.decode ? utf8(PythonHTMLTitle::unescape(slice)) : utf8(slice)));
    }
  });
  return events;
}

}  // namespace

// Both hand over an exactly sized copy, so that the sanitizer sees a unit read too far.

HTMLEvents scalarEvents(std::string_view html, bool end) {
  const std::u32string scalars = toScalars(html);
  const std::vector<char32_t> exact(scalars.begin(), scalars.end());
  return collect(std::u32string_view(exact.data(), exact.size()), end);
}

HTMLEvents utf8Events(std::string_view html, bool end) {
  const std::vector<char> exact(html.begin(), html.end());
  return collect(std::string_view(exact.data(), exact.size()), end);
}

}  // namespace tessary
