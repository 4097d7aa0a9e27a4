#include "TessaryDomain/capture/ContentTitle.h"

#include "TessaryDomain/capture/Headings.h"
#include "TessaryDomain/capture/PythonHTMLTitle.h"
#include "TessaryDomain/capture/PythonText.h"

namespace tessary::CaptureRules {
namespace {

std::string pageTitle(std::string_view page) {
  const std::string text = PythonHTMLTitle::text(page);
  std::string title;
  for (const std::string_view word : PythonText::split(text))
    title.append(title.empty() ? "" : " ").append(word);
  return title;
}

}  // namespace

std::string contentTitle(std::string_view content, std::string_view fallback, std::string_view kind) {
  if (kind == "html") {
    const std::string title = pageTitle(content);
    if (!title.empty()) return std::string(PythonText::prefix(title, longestTitle));
  }
  const auto heading = Headings::find(content);
  const std::string_view text = heading ? PythonText::strip(heading->text.in(content)) : std::string_view();
  return std::string(PythonText::prefix(text.empty() ? fallback : text, longestTitle));
}

}  // namespace tessary::CaptureRules
