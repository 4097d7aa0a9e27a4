#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tessary {

/// Pages to time the scanner on.
struct HTMLPages {
  /// For the name of the benchmark.
  std::string name;
  std::vector<std::string> pages;

  /// The bytes of all pages.
  [[nodiscard]] std::size_t byteCount() const;
};

/// About a megabyte of real pages: the manuals in HTML that the machine's packages have installed, those of at most 64
/// KiB in the order of their paths. Empty where there are none.
[[nodiscard]] HTMLPages installedPages();

/// A megabyte of made pages in the manner of a web application's: deeply nested, many classes and addresses, lists and
/// tables, inline scripts and styles, references, and text in several scripts. The same in every run.
[[nodiscard]] HTMLPages madePages();

/// A megabyte of text with a character reference every few words, no tags. The same in every run.
[[nodiscard]] HTMLPages textWithReferences();

}  // namespace tessary
