#include "TessaryDomain/capture/PythonHTMLTitle.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

#include "TessaryDomain/capture/PythonText.h"
#include "TessaryPlatform/text/Casing.h"

namespace tessary::PythonHTMLTitle {

namespace {

using Start = UTF8Parser::Start;
using End = UTF8Parser::End;

/// What stands in these is not drawn, or not by the page as it stands.
constexpr std::array<std::string_view, 4> passiveElements = {"script", "template", "noscript", "textarea"};

bool isPassive(std::string_view tag) {
  return std::ranges::find(passiveElements, tag) != passiveElements.end();
}

/// The value of the first attribute of that name; empty where it is absent or has none.
std::string_view valueOf(const Start& start, std::string_view name) {
  return start.firstValue(name).value_or(std::string_view());
}

bool isStyleSheet(const Start& link) {
  const std::string relations = lowercased(valueOf(link, "rel"));
  return std::ranges::count(PythonText::split(relations), "stylesheet") > 0;
}

std::optional<ResourceReference> referenceOf(const Start& start) {
  if (start.tag == "img") {
    const std::string_view source = valueOf(start, "src");
    if (!source.empty()) return ResourceReference{std::string(source), "image"};
  } else if (start.tag == "link") {
    const std::string_view address = valueOf(start, "href");
    if (!address.empty() && isStyleSheet(start)) return ResourceReference{std::string(address), "css"};
  }
  return std::nullopt;
}

}  // namespace

std::string text(std::string_view html) {
  std::string title;
  bool isInTitle = false;
  UTF8Parser parser(html);
  parser.run(/*end=*/false, [&](const UTF8Event& event) {
    if (const auto* start = std::get_if<Start>(&event)) {
      if (start->tag == "title") isInTitle = true;
    } else if (const auto* end = std::get_if<End>(&event)) {
      if (end->tag == "title") isInTitle = false;
    } else if (isInTitle) {
      const Text& run = *std::get_if<Text>(&event);
      title += run.decode ? unescape(parser.slice(run)) : std::string(parser.slice(run));
    }
  });
  return title;
}

std::vector<ResourceReference> resourceReferences(std::string_view html) {
  std::vector<ResourceReference> references;
  std::size_t startCount = 0;
  std::size_t depth = 0;  // of passive elements around
  UTF8Parser parser(html);
  parser.run(/*end=*/true, [&](const UTF8Event& event) {
    if (const auto* start = std::get_if<Start>(&event)) {
      if (++startCount > resourceReferenceTagLimit) return;
      if (isPassive(start->tag)) {
        ++depth;
      } else if (depth == 0) {
        if (auto reference = referenceOf(*start)) references.push_back(*std::move(reference));
      }
    } else if (const auto* end = std::get_if<End>(&event)) {
      if (isPassive(end->tag) && depth > 0) --depth;
    }
  });
  return references;
}

}  // namespace tessary::PythonHTMLTitle
