// A host of TessaryRenderer in one file: it tells a document's format by the file's name, has the renderer render it,
// and writes one self-contained page that any browser opens.
//
//   render-page RENDERER ASSETS FILE PAGE

#include <csignal>
#include <cstdio>
#include <expected>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "TessaryDomain/documents/DocumentRendering.h"
#include "TessaryPlatform/json/JSONValue.h"
#include "TessaryPlatform/text/UTF8.h"

#include "ChildProcess.h"

namespace {

using tessary::DocumentContentFormat;
using tessary::JSONValue;

/// The format that the library gives a file of that name. A file that is neither Markdown nor HTML is shown as code.
DocumentContentFormat formatOf(const std::filesystem::path& file) {
  tessary::DocumentRecord record;
  record.kind = "text";
  record.sourcePath = file.string();
  return DocumentContentFormat::resolve(record, nullptr);
}

std::string requestFor(std::string_view text, const DocumentContentFormat& format) {
  const auto* const code = std::get_if<DocumentContentFormat::Code>(&format.value);
  const bool isHTML = std::holds_alternative<DocumentContentFormat::HTML>(format.value);
  JSONValue::Object form = {{"kind", code != nullptr ? "code" : isHTML ? "html" : "markdown"}};
  if (code != nullptr && code->language) form.push_back({"language", *code->language});
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
  out << pageOf(*rendered, tessary::repairedUTF8(document.filename().string()));
  out.close();
  if (!out) return fail("cannot write " + page.string());
  return 0;
}
