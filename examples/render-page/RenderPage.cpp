// A host of TessaryRenderer in one file: it tells a document's format by the file's name, has the renderer render it,
// and writes one self-contained page that any browser opens.
//
//   render-page RENDERER ASSETS FILE PAGE

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <expected>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "TessaryPlatform/json/JSONValue.h"
#include "TessaryPlatform/text/Casing.h"
#include "TessaryPlatform/text/UTF8.h"

#include "ChildProcess.h"

namespace {

using namespace std::literals;
using tessary::JSONValue;

struct Format {
  std::string kind;
  /// A name that the asset's highlighter knows, or empty.
  std::string language;
};

/// Markdown and HTML by their usual extensions; everything else is code, and the extension names the language.
Format formatOf(const std::filesystem::path& file) {
  constexpr auto markdownExtensions = std::to_array({".md"sv, ".markdown"sv, ".mdown"sv, ".mkd"sv});
  constexpr auto htmlExtensions = std::to_array({".html"sv, ".htm"sv, ".xhtml"sv});
  const std::string extension = tessary::lowercased(file.extension().string());
  const std::string name = tessary::lowercased(file.filename().string());
  if (std::ranges::find(markdownExtensions, extension) != markdownExtensions.end()) return {"markdown", ""};
  if (std::ranges::find(htmlExtensions, extension) != htmlExtensions.end()) return {"html", ""};
  if (name == "cmakelists.txt") return {"code", "cmake"};
  if (name == "dockerfile" || name == "makefile") return {"code", name};
  if (extension == ".txt" || extension.size() < 2) return {"code", "plaintext"};
  return {"code", extension.substr(1)};
}

std::string requestFor(std::string_view text, const Format& format) {
  JSONValue::Object form = {{"kind", format.kind}};
  if (!format.language.empty()) form.push_back({"language", format.language});
  const JSONValue request = JSONValue::Object{{"operation", "render"},
                                              {"text", text},
                                              {"format", std::move(form)},
                                              {"frontmatterLabel", "Front matter"},
                                              {"allowsRemoteImages", false}};
  // Only a number without a JSON form could fail, and there is none.
  return request.text().value_or("");
}

struct Rendered {
  std::string html;
  std::string styleSheet;
  /// Remarks for the reader.
  std::vector<std::string> notices;
};

std::string textAt(const JSONValue& object, std::string_view key) {
  const JSONValue* value = object.find(key);
  const std::string* text = value != nullptr ? value->string() : nullptr;
  return text != nullptr ? *text : "";
}

std::expected<Rendered, std::string> render(const std::string& renderer, const std::string& assets,
                                            std::string_view request) {
  const auto outcome = runChild({renderer, "--assets", assets}, request);
  if (!outcome) return std::unexpected("cannot start " + renderer);
  if (outcome->signal == SIGALRM) return std::unexpected("rendering took too long");
  if (!outcome->status) return std::unexpected("the renderer was ended by signal " + std::to_string(outcome->signal));
  const auto answer = JSONValue::parse(outcome->output);
  if (!answer) return std::unexpected("the renderer gave no answer");
  if (*outcome->status != 0) return std::unexpected(textAt(*answer, "error"));
  Rendered rendered{textAt(*answer, "html"), textAt(*answer, "styleSheet"), {}};
  const JSONValue* notices = answer->find("notices");
  if (notices == nullptr || notices->array() == nullptr) return rendered;
  for (const JSONValue& notice : *notices->array()) {
    if (notice.string() != nullptr) rendered.notices.push_back(*notice.string());
  }
  return rendered;
}

std::string escaped(std::string_view text) {
  std::string html;
  for (const char byte : text) {
    switch (byte) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      default:
        html += byte;
    }
  }
  return html;
}

/// The page around the rendered body. Its policy loads nothing and runs nothing, whatever the body holds.
std::string pageOf(const Rendered& rendered, std::string_view title) {
  return "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n"
         "<meta http-equiv=\"Content-Security-Policy\" "
         "content=\"default-src 'none'; style-src 'unsafe-inline'; img-src data:; base-uri 'none'; form-action "
         "'none'\">\n"
         "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
         "<meta name=\"color-scheme\" content=\"light dark\">\n"
         "<title>" +
         escaped(title) + "</title>\n<style>\n" + rendered.styleSheet + "</style>\n</head>\n<body>\n" + rendered.html +
         "\n</body>\n</html>\n";
}

int fail(std::string_view message) {
  std::fprintf(stderr, "render-page: %.*s\n", static_cast<int>(message.size()), message.data());
  return 1;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount != 5) return fail("usage: render-page RENDERER ASSETS FILE PAGE");
  const std::filesystem::path document = arguments[3];
  const std::filesystem::path page = arguments[4];

  std::ifstream file(document, std::ios::binary);
  if (!file) return fail("cannot read " + document.string());
  const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};

  const auto rendered = render(arguments[1], arguments[2], requestFor(bytes, formatOf(document)));
  if (!rendered) return fail(document.string() + ": " + rendered.error());
  for (const std::string& notice : rendered->notices)
    std::fprintf(stderr, "render-page: %s\n", notice.c_str());

  std::ofstream out(page, std::ios::binary | std::ios::trunc);
  out << pageOf(*rendered, tessary::toUTF8(tessary::toScalars(document.filename().string())));
  out.close();
  if (!out) return fail("cannot write " + page.string());
  return 0;
}
