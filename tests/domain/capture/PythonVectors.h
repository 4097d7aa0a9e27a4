#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tessary {

/// One case of a file under tests/vectors: what CPython answered, and the line that holds it.
struct PythonVector {
  std::size_t line;
  std::vector<std::string> fields;

  /// The field at `index` read as a decimal number.
  [[nodiscard]] long long number(std::size_t index) const;

  /// The list whose count stands at `index`; moves `index` behind its last entry.
  [[nodiscard]] std::vector<std::string> list(std::size_t& index) const;
};

/// The cases of a file in a folder of tests/vectors, in its order: fields separated by tabs, in which \xHH stands for a
/// byte. An empty answer means that the file is missing, which every test that reads one must refuse.
[[nodiscard]] std::vector<PythonVector> readPythonVectors(std::string_view fileName,
                                                          std::string_view folder = "python");

}  // namespace tessary
