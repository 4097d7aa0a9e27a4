#include "TessaryDomain/capture/StructuralText.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "TessaryDomain/capture/PythonText.h"

namespace tessary {

namespace {

constexpr std::size_t mostIndent = 3;
constexpr std::size_t leastRun = 3;

/// The run that opens or closes a fence; empty for a line that does neither. A view into the line.
std::string_view fenceRun(std::string_view line) {
  std::size_t start = 0;
  // A tab counts as one.
  while (start < std::min(mostIndent, line.size()) && (line[start] == ' ' || line[start] == '\t'))
    ++start;
  if (start == line.size() || (line[start] != '~' && line[start] != '`')) return {};
  const std::size_t end = std::min(line.find_first_not_of(line[start], start), line.size());
  return end - start < leastRun ? std::string_view() : line.substr(start, end - start);
}

bool closesFence(std::string_view line, std::string_view openingRun) {
  const std::string_view run = fenceRun(line);
  if (run.size() < openingRun.size() || run.front() != openingRun.front()) return false;
  return PythonText::strip(line.substr(static_cast<std::size_t>(run.end() - line.begin()))).empty();
}

/// Joins lines of a text, which come in their order, with U+000A.
class LineJoiner {
 public:
  explicit LineJoiner(std::string_view text) : text_(text) { joined_.reserve(text.size() + 1); }

  void append(std::string_view line) {
    const auto start = static_cast<std::size_t>(line.data() - text_.data());
    // OPTIMIZATION: lines that stand one behind the other in the text, a U+000A between them, are copied at once.
    if (start != end_ + 1 || text_[end_] != '\n' || !hasLines_) {
      flush();
      start_ = start;
    }
    end_ = start + line.size();
    hasLines_ = true;
  }

  [[nodiscard]] std::string joined() && {
    flush();
    // Every line has been given an end, but lines are joined.
    if (!joined_.empty()) joined_.pop_back();
    return std::move(joined_);
  }

 private:
  void flush() {
    if (hasLines_) joined_.append(text_, start_, end_ - start_).push_back('\n');
  }

  std::string_view text_;
  std::string joined_;
  /// The lines that are not yet copied.
  std::size_t start_ = 0;
  std::size_t end_ = 0;
  bool hasLines_ = false;
};

}  // namespace

std::string structuralText(std::string_view text) {
  LineJoiner kept(text);
  // Empty where no fence is open.
  std::string_view openingRun;
  while (!text.empty()) {
    const std::string_view line = PythonText::takeLine(text);
    if (!openingRun.empty()) {
      if (closesFence(line, openingRun)) openingRun = {};
    } else if (openingRun = fenceRun(line); openingRun.empty()) {
      kept.append(line);
    }
  }
  return std::move(kept).joined();
}

}  // namespace tessary
