#include "HTMLVectors.h"

#include <cstddef>
#include <fstream>

#include "TessaryPlatform/text/UTF8.h"

namespace tessary {

namespace {

std::string unescapedField(std::string_view field) {
  std::string decoded;
  for (std::size_t at = 0; at < field.size();) {
    if (field[at] != '\\') {
      decoded.push_back(field[at++]);
      continue;
    }
    const std::size_t close = field.find('}', at);
    const std::string digits(field.substr(at + 2, close - at - 2));
    appendScalar(decoded, static_cast<char32_t>(std::stoul(digits, nullptr, 16)));
    at = close + 1;
  }
  return decoded;
}

}  // namespace

std::vector<HTMLVector> readHTMLVectors(std::string_view name) {
  std::ifstream file(std::string(TESSARY_TEST_VECTORS) + "/html/" + std::string(name), std::ios::binary);
  std::vector<HTMLVector> records;
  for (std::string line; std::getline(file, line);) {
    HTMLVector& record = records.emplace_back();
    for (std::size_t start = 0, tab = 0; tab != std::string::npos; start = tab + 1) {
      tab = line.find('\t', start);
      record.push_back(unescapedField(std::string_view(line).substr(start, tab == line.npos ? tab : tab - start)));
    }
  }
  return records;
}

}  // namespace tessary
