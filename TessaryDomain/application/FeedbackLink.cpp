#include "TessaryDomain/application/FeedbackLink.h"

#include <string>

#include "TessaryPlatform/addresses/PercentEncoding.h"
#include "TessaryPlatform/text/UTF8.h"

namespace tessary::FeedbackLink {
namespace {

/// The items of a query, in the order in which they are added.
class Query {
 public:
  void add(std::string_view name, std::string_view value) {
    text_ += text_.empty() ? '?' : '&';
    text_ += PercentEncoding::encoded(repairedUTF8(name));
    text_ += '=';
    text_ += PercentEncoding::encoded(repairedUTF8(value));
  }

  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace

std::optional<URL> url(FeedbackKind kind, const FeedbackEnvironment& environment) {
  const bool isBug = kind == FeedbackKind::bug;
  Query query;
  query.add("template", isBug ? "bug_report.yml" : "feature_request.yml");
  query.add("app-version", environment.appVersion + " " + environment.build);
  if (isBug) {
    query.add("macos-version", environment.macOS);
    query.add("mac-model", environment.model);
  }
  return URL::parse(std::string(repository) + "/issues/new" + query.text());
}

}  // namespace tessary::FeedbackLink
