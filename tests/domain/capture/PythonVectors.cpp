#include "PythonVectors.h"

#include <fstream>

namespace tessary {

namespace {

std::string unescaped(std::string_view field) {
  std::string text;
  for (std::size_t position = 0; position < field.size(); ++position) {
    if (field[position] != '\\') {
      text.push_back(field[position]);
      continue;
    }
    text.push_back(static_cast<char>(std::stoi(std::string(field.substr(position + 2, 2)), nullptr, 16)));
    position += 3;
  }
  return text;
}

}  // namespace

long long PythonVector::number(std::size_t index) const {
  return std::stoll(fields.at(index));
}

std::vector<std::string> PythonVector::list(std::size_t& index) const {
  const auto count = static_cast<std::size_t>(number(index));
  std::vector<std::string> entries;
  for (std::size_t entry = 1; entry <= count; ++entry)
    entries.push_back(fields.at(index + entry));
  index += count + 1;
  return entries;
}

std::vector<PythonVector> readPythonVectors(std::string_view fileName, std::string_view folder) {
  const std::string path = TESSARY_TEST_VECTORS "/" + std::string(folder) + "/" + std::string(fileName);
  std::ifstream file(path, std::ios::binary);
  std::vector<PythonVector> vectors;
  for (std::string line; std::getline(file, line);) {
    PythonVector& vector = vectors.emplace_back(PythonVector{.line = vectors.size() + 1, .fields = {}});
    for (std::size_t start = 0; start <= line.size();) {
      const std::size_t end = std::min(line.find('\t', start), line.size());
      vector.fields.push_back(unescaped(std::string_view(line).substr(start, end - start)));
      start = end + 1;
    }
  }
  return vectors;
}

}  // namespace tessary
