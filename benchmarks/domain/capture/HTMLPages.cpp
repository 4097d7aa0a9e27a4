#include "HTMLPages.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string_view>

namespace tessary {

namespace {

constexpr std::size_t megabyte = 1'000'000;
constexpr std::uintmax_t greatestPage = 64 * 1024;

std::vector<std::filesystem::path> installedPaths() {
  namespace fs = std::filesystem;
  std::vector<fs::path> paths;
  std::error_code error;
  for (fs::recursive_directory_iterator entry("/usr/share/doc", error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code ignored;
    if (entry->path().extension() == ".html" && entry->is_regular_file(ignored) &&
        entry->file_size(ignored) <= greatestPage)
      paths.push_back(entry->path());
  }
  std::ranges::sort(paths);
  return paths;
}

constexpr std::string_view words[] = {
    "plan",    "report",   "the",    "agent",  "writes", "a",     "document", "and",  "of",      "revision",
    "library", "in",       "every",  "kind",   "to",     "shelf", "reader",   "page", "summary", "with",
    "table",   "한국어로", "문서를", "das",    "größe",  "été",   "отчёт",    "計画", "draft",   "no",
    "session", "is",       "for",    "tokens", "1,200",  "(see",  "note)",    "it's", "render",  "text"};
constexpr std::string_view names[] = {"&amp;",   "&lt;",     "&gt;",   "&nbsp;",   "&quot;",  "&#39;",
                                      "&mdash;", "&hellip;", "&copy;", "&eacute;", "&#8217;", "&#x1F600;"};

class PageMaker {
 public:
  explicit PageMaker(std::uint32_t seed) : random_(seed) {}

  std::string prose(std::size_t count, unsigned wordsToAReference) {
    std::string text;
    for (; count > 0; --count) {
      text += words[random_() % std::size(words)];
      if (random_() % wordsToAReference == 0) text += names[random_() % std::size(names)];
      text += ' ';
    }
    return text;
  }

  std::string page() {
    std::string html =
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>" + prose(6, 20) +
        "</title>\n<link rel=\"stylesheet\" href=\"/assets/app.css?v=3&amp;theme=dark\">\n"
        "<style>.card > p { margin: 0 } .grid { display: grid }</style>\n</head>\n<body class=\"app dark\">\n";
    while (html.size() < 40'000)
      html += section();
    return html + "</body>\n</html>\n";
  }

 private:
  std::string number() { return std::to_string(random_() % 10'000); }

  std::string section() {
    switch (random_() % 6) {
      case 0:
        return "<div class=\"card card-" + number() + "\" data-id=\"" + number() + "\">\n  <h2 id='s" + number() +
               "'>" + prose(5, 30) + "</h2>\n  <p class=\"lead\">" + prose(40, 25) +
               "<a href=\"/docs/page?id=" + number() + "&amp;tab=2\" title=\"" + prose(3, 90) + "\">" + prose(3, 30) +
               "</a> " + prose(30, 25) + "<code>x &lt; " + number() + "</code>.</p>\n</div>\n";
      case 1: {
        std::string list = "<ul class=\"menu\">\n";
        for (int item = 0; item < 8; ++item)
          list += "  <li class=\"item\"><a href=\"#s" + number() + "\">" + prose(2, 40) + "</a></li>\n";
        return list + "</ul>\n";
      }
      case 2: {
        std::string table = "<table>\n";
        for (int row = 0; row < 5; ++row) {
          table += "<tr>";
          for (int cell = 0; cell < 4; ++cell)
            table += "<td align=right>" + number() + "</td>";
          table += "</tr>\n";
        }
        return table + "</table>\n";
      }
      case 3:
        return "<script>\nfor (let i = 0; i < " + number() +
               " && ready; i++) { emit(\"<b>\" + i + \"</b>\"); }\nconst state = {\"count\": " + number() +
               ", \"open\": true};\n</script>\n<!-- section " + number() + " -->\n";
      case 4:
        return "<figure><img src=\"/images/" + number() + ".png\" alt=\"" + prose(4, 30) +
               "\" width=640 height=480 loading=lazy><figcaption>" + prose(8, 30) +
               "</figcaption></figure><br/>\n<input type=\"text\" name=\"q" + number() + "\" disabled>\n";
      default:
        return "<p>" + prose(60, 25) + "</p>\n<pre><code class=\"language-cpp\">auto x = f&lt;int&gt;(" + number() +
               ");\nif (x &amp;&amp; y) return;\n</code></pre>\n";
    }
  }

  std::mt19937 random_;
};

}  // namespace

std::size_t HTMLPages::byteCount() const {
  std::size_t count = 0;
  for (const std::string& page : pages)
    count += page.size();
  return count;
}

HTMLPages installedPages() {
  HTMLPages installed{"installed", {}};
  for (const auto& path : installedPaths()) {
    if (installed.byteCount() >= megabyte) break;
    std::ifstream file(path, std::ios::binary);
    installed.pages.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return installed;
}

HTMLPages madePages() {
  HTMLPages made{"made", {}};
  PageMaker maker(20260317);
  while (made.byteCount() < megabyte)
    made.pages.push_back(maker.page());
  return made;
}

HTMLPages textWithReferences() {
  HTMLPages made{"references", {}};
  PageMaker maker(20260318);
  while (made.byteCount() < megabyte)
    made.pages.push_back(maker.prose(4000, 6));
  return made;
}

}  // namespace tessary
