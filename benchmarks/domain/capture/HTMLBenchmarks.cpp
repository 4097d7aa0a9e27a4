// The HTML scanner against CPython's html.parser and against libgumbo, and `unescape` against CPython's, in one run on
// the same pages. What comes out is compared before anything is timed: all events and texts with CPython, the title and
// the number of images and second headings with gumbo, which builds a tree and so sees other tags in damaged pages.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>
#include <gumbo.h>

#include "TessaryDomain/capture/PythonHTMLTitle.h"
#include "TessaryPlatform/text/UTF8.h"

#include "HTMLPages.h"
#include "PythonScript.h"

namespace tessary {
namespace {

using PythonHTMLTitle::Text;

[[noreturn]] void stop(const std::string& reason) {
  std::fprintf(stderr, "%s\n", reason.c_str());
  std::exit(1);
}

// What a caller does at the least: takes every tag and attribute, and every text decoded.

template <typename Unit>
std::size_t countEvents(std::basic_string_view<Unit> html) {
  using Parser = PythonHTMLTitle::BasicParser<Unit>;
  std::size_t count = 0;
  Parser parser(html);
  parser.run(/*end=*/true, [&](const typename Parser::Event& event) {
    ++count;
    if (const auto* start = std::get_if<typename Parser::Start>(&event)) {
      count += start->attributes.size();
    } else if (const auto* text = std::get_if<Text>(&event)) {
      const auto slice = parser.slice(*text);
      if (text->decode && slice.find(Unit{'&'}) != slice.npos)
        benchmark::DoNotOptimize(PythonHTMLTitle::unescape(slice));
      else
        benchmark::DoNotOptimize(slice);
    }
  });
  return count;
}

// Comparison with CPython.

/// The CRC-32 of zlib, continued.
std::uint32_t checksum(std::string_view text, std::uint32_t start) {
  std::uint32_t sum = ~start;
  for (const char byte : text) {
    sum ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit)
      sum = (sum >> 1) ^ (0xEDB88320 & (0 - (sum & 1)));
  }
  return ~sum;
}

std::string writtenEvents(const std::string& html) {
  using Parser = PythonHTMLTitle::UTF8Parser;
  std::string written;
  const auto write = [&](char kind, std::string_view text) {
    if (!written.empty()) written += '\n';
    written += kind;
    written += text;
  };
  Parser parser(html);
  parser.run(/*end=*/true, [&](const PythonHTMLTitle::UTF8Event& event) {
    if (const auto* start = std::get_if<Parser::Start>(&event)) {
      write('S', start->tag);
      for (const auto& attribute : start->attributes) {
        write('A', attribute.name);
        if (attribute.value) write('V', *attribute.value);
      }
    } else if (const auto* end = std::get_if<Parser::End>(&event)) {
      write('E', end->tag);
    } else {
      const Text& text = std::get<Text>(event);
      write('T', text.decode ? PythonHTMLTitle::unescape(parser.slice(text)) : std::string(parser.slice(text)));
    }
  });
  return written;
}

/// The pages as scalars, decoded before the clock runs, by page: what CPython's side is given too.
const std::u32string& decoded(const std::string& page) {
  static std::map<const std::string*, std::u32string> pages;
  std::u32string& scalars = pages[&page];
  if (scalars.empty()) scalars = toScalars(page);
  return scalars;
}

template <typename Answer>
std::uint32_t checksumOfAll(const HTMLPages& pages, Answer answer) {
  std::uint32_t sum = 0;
  for (const std::string& page : pages.pages)
    sum = checksum(answer(page), sum);
  return sum;
}

/// What python3 said of a task.
struct PeerAnswer {
  double seconds;
  std::uint32_t checksum;
};

/// Runs the peer over the pages: its answers by task.
std::map<std::string, PeerAnswer> askCPython(const HTMLPages& pages) {
  namespace fs = std::filesystem;
  const fs::path folder = fs::temp_directory_path() / ("tessary-html-" + pages.name);
  fs::remove_all(folder);
  fs::create_directories(folder);
  for (std::size_t number = 0; number < pages.pages.size(); ++number)
    std::ofstream(folder / (std::to_string(number) + ".html"), std::ios::binary) << pages.pages[number];
  std::istringstream lines(outputOfPython(TESSARY_HTML_PEER, "'" + folder.string() + "'"));
  fs::remove_all(folder);
  std::map<std::string, PeerAnswer> answers;
  std::string task;
  for (PeerAnswer answer{}; lines >> task >> answer.seconds >> answer.checksum;)
    answers[task] = answer;
  if (answers.size() != 2) stop("python3 did not answer");
  return answers;
}

// Comparison with gumbo.

struct Outline {
  std::string title;
  std::size_t images = 0;
  std::size_t headings = 0;

  bool operator==(const Outline&) const = default;
};

Outline outlineByGumbo(const std::string& html) {
  Outline outline;
  GumboOutput* output = gumbo_parse_with_options(&kGumboDefaultOptions, html.data(), html.size());
  std::vector<const GumboNode*> open = {output->root};
  while (!open.empty()) {
    const GumboNode* node = open.back();
    open.pop_back();
    if (node->type != GUMBO_NODE_ELEMENT) continue;
    const GumboElement& element = node->v.element;
    if (element.tag == GUMBO_TAG_IMG) ++outline.images;
    if (element.tag == GUMBO_TAG_H2) ++outline.headings;
    for (unsigned index = 0; index < element.children.length; ++index) {
      const auto* child = static_cast<const GumboNode*>(element.children.data[index]);
      if (element.tag == GUMBO_TAG_TITLE && element.tag_namespace == GUMBO_NAMESPACE_HTML)
        outline.title += child->v.text.text;
      open.push_back(child);
    }
  }
  gumbo_destroy_output(&kGumboDefaultOptions, output);
  return outline;
}

Outline outlineByUs(const std::string& html) {
  using Parser = PythonHTMLTitle::UTF8Parser;
  Outline outline;
  outline.title = PythonHTMLTitle::text(html);
  Parser parser(html);
  parser.run(/*end=*/true, [&](const PythonHTMLTitle::UTF8Event& event) {
    if (const auto* start = std::get_if<Parser::Start>(&event)) {
      if (start->tag == "img") ++outline.images;
      if (start->tag == "h2") ++outline.headings;
    }
  });
  return outline;
}

// The benchmarks. Each first makes sure, once for its pages, that the answers agree.

/// CPython's times for pages on which its answers were found to be the same, and gumbo's.
const std::map<std::string, PeerAnswer>& comparedScan(const HTMLPages& pages) {
  static std::map<std::string, std::map<std::string, PeerAnswer>> known;
  if (const auto found = known.find(pages.name); found != known.end()) return found->second;
  const auto peer = askCPython(pages);
  if (checksumOfAll(pages, writtenEvents) != peer.at("events").checksum)
    stop(pages.name + ": events differ from CPython's");
  for (const std::string& page : pages.pages) {
    if (outlineByUs(page) != outlineByGumbo(page)) stop(pages.name + ": title, images or headings differ from gumbo's");
  }
  return known.emplace(pages.name, peer).first->second;
}

const std::map<std::string, PeerAnswer>& comparedUnescape(const HTMLPages& pages) {
  static std::map<std::string, std::map<std::string, PeerAnswer>> known;
  if (const auto found = known.find(pages.name); found != known.end()) return found->second;
  const auto peer = askCPython(pages);
  const auto unescape = [](const std::string& page) { return PythonHTMLTitle::unescape(page); };
  if (checksumOfAll(pages, unescape) != peer.at("unescape").checksum)
    stop(pages.name + ": texts differ from CPython's");
  return known.emplace(pages.name, peer).first->second;
}

const std::map<std::string, PeerAnswer>& notCompared(const HTMLPages& /*pages*/) {
  static const std::map<std::string, PeerAnswer> none;
  return none;
}

using Comparison = decltype(&notCompared);

void timePages(const std::string& name, const HTMLPages& pages, Comparison compared, void (*work)(const std::string&)) {
  const auto run = [&pages, compared, work](benchmark::State& state) {
    compared(pages);
    for (auto _ : state) {
      for (const std::string& page : pages.pages)
        work(page);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pages.byteCount()));
  };
  benchmark::RegisterBenchmark(name.c_str(), run)->Unit(benchmark::kMillisecond);
}

/// CPython's time, as it reported it: the best of five passes.
void reportPeer(const std::string& name, const HTMLPages& pages, Comparison compared, const std::string& task) {
  const auto run = [&pages, compared, task](benchmark::State& state) {
    const double seconds = compared(pages).at(task).seconds;
    for (auto _ : state)
      state.SetIterationTime(seconds);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pages.byteCount()));
  };
  benchmark::RegisterBenchmark(name.c_str(), run)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
}

void addScanner(const HTMLPages& pages) {
  const std::string name = "scan/" + pages.name + "/";
  timePages(name + "UTF-8", pages, comparedScan,
            [](const std::string& page) { benchmark::DoNotOptimize(countEvents<char>(page)); });
  timePages(name + "scalars", pages, comparedScan,
            [](const std::string& page) { benchmark::DoNotOptimize(countEvents<char32_t>(decoded(page))); });
  timePages(name + "scalars, decoding timed", pages, comparedScan,
            [](const std::string& page) { benchmark::DoNotOptimize(countEvents<char32_t>(toScalars(page))); });
  timePages(name + "title", pages, comparedScan,
            [](const std::string& page) { benchmark::DoNotOptimize(PythonHTMLTitle::text(page)); });
  timePages(name + "resources", pages, comparedScan,
            [](const std::string& page) { benchmark::DoNotOptimize(PythonHTMLTitle::resourceReferences(page)); });
  timePages(name + "gumbo", pages, comparedScan, [](const std::string& page) {
    GumboOutput* output = gumbo_parse_with_options(&kGumboDefaultOptions, page.data(), page.size());
    gumbo_destroy_output(&kGumboDefaultOptions, output);
  });
  reportPeer(name + "CPython", pages, comparedScan, "events");
}

void addUnescape(const HTMLPages& pages) {
  const std::string name = "unescape/" + pages.name + "/";
  timePages(name + "UTF-8", pages, comparedUnescape,
            [](const std::string& page) { benchmark::DoNotOptimize(PythonHTMLTitle::unescape(page)); });
  timePages(name + "scalars", pages, comparedUnescape,
            [](const std::string& page) { benchmark::DoNotOptimize(PythonHTMLTitle::unescape(decoded(page))); });
  reportPeer(name + "CPython", pages, comparedUnescape, "unescape");
}

/// A mebibyte of one unit. No peer, since the older parser of the machine's python3 is quadratic on some of them.
HTMLPages hostilePage(const std::string& unit) {
  HTMLPages hostile{unit, {""}};
  while (hostile.pages[0].size() < (1U << 20))
    hostile.pages[0] += unit;
  return hostile;
}

[[maybe_unused]] const bool areRegistered = [] {
  static const HTMLPages installed = installedPages();
  static const HTMLPages made = madePages();
  static const HTMLPages references = textWithReferences();
  if (!installed.pages.empty()) addScanner(installed);
  addScanner(made);
  addUnescape(references);
  addUnescape(made);
  static std::vector<HTMLPages> hostile;
  for (const std::string unit : {"<", "<!--", "<a ", "<a b='", "</", "</1>", "&", "&a", "<p>", "</script"})
    hostile.push_back(hostilePage(unit));
  for (const HTMLPages& pages : hostile) {
    timePages("hostile/" + pages.name, pages, notCompared,
              [](const std::string& page) { benchmark::DoNotOptimize(countEvents<char>(page)); });
  }
  return true;
}();

}  // namespace
}  // namespace tessary
