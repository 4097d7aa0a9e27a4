#include "TessaryDomain/capture/PythonPath.h"

#include <algorithm>
#include <iterator>

namespace tessary {

PythonPath::Split PythonPath::splitRoot(std::string_view text) noexcept {
  if (!text.starts_with('/')) return {.root = "", .rest = text};
  const bool isDouble = text.starts_with("//") && !text.starts_with("///");
  const std::size_t byteCount = isDouble ? 2 : 1;
  return {.root = text.substr(0, byteCount), .rest = text.substr(byteCount)};
}

PythonPath::PythonPath(std::string_view text) {
  const auto [root, rest] = splitRoot(text);
  root_ = root;
  for (std::size_t start = 0; start < rest.size();) {
    const std::size_t end = std::min(rest.find('/', start), rest.size());
    const std::string_view piece = rest.substr(start, end - start);
    if (!piece.empty() && piece != ".") tail_.emplace_back(piece);
    start = end + 1;
  }
}

std::string PythonPath::string() const {
  std::string text = root_;
  for (const std::string& component : tail_) {
    if (text.size() > root_.size()) text += '/';
    text += component;
  }
  return text.empty() ? "." : text;
}

std::vector<std::string> PythonPath::parts() const {
  std::vector<std::string> parts;
  parts.reserve(tail_.size() + 1);
  if (!root_.empty()) parts.push_back(root_);
  parts.insert(parts.end(), tail_.begin(), tail_.end());
  return parts;
}

std::string_view PythonPath::name() const& noexcept {
  return tail_.empty() ? std::string_view() : std::string_view(tail_.back());
}

std::string_view PythonPath::nameOf(std::string_view text) noexcept {
  for (std::size_t end = text.size(); end > 0;) {
    const std::size_t slash = text.rfind('/', end - 1);
    const std::size_t start = slash == std::string_view::npos ? 0 : slash + 1;
    const std::string_view piece = text.substr(start, end - start);
    if (!piece.empty() && piece != ".") return piece;
    end = start == 0 ? 0 : slash;
  }
  return {};
}

std::string_view PythonPath::suffix() const& noexcept {
  return suffixOf(name());
}

std::string_view PythonPath::suffixOf(std::string_view name) noexcept {
  const std::size_t stemStart = std::min(name.find_first_not_of('.'), name.size());
  const std::size_t dot = name.rfind('.');
  // A dot of the run at the start hides a file and begins no suffix; a lone dot at the end does.
  return dot == std::string_view::npos || dot < stemStart ? std::string_view() : name.substr(dot);
}

PythonPath PythonPath::withoutLast(std::size_t count) const {
  return {root_, std::vector<std::string>(tail_.begin(), std::prev(tail_.end(), static_cast<std::ptrdiff_t>(count)))};
}

PythonPath PythonPath::parent() const {
  return withoutLast(tail_.empty() ? 0 : 1);
}

std::optional<std::vector<std::string>> PythonPath::relativeParts(const PythonPath& to) const {
  if (!to.contains(*this)) return std::nullopt;
  return std::vector<std::string>(std::next(tail_.begin(), std::ssize(to.tail_)), tail_.end());
}

bool PythonPath::isParent(const PythonPath& of) const noexcept {
  return contains(of) && of.tail_.size() > tail_.size();
}

bool PythonPath::contains(const PythonPath& other) const noexcept {
  return root_ == other.root_ && tail_.size() <= other.tail_.size() &&
         std::equal(tail_.begin(), tail_.end(), other.tail_.begin());
}

PythonPath PythonPath::appending(std::string_view text) const {
  PythonPath appended(text);
  if (!appended.root_.empty()) return appended;
  appended.root_ = root_;
  appended.tail_.insert(appended.tail_.begin(), tail_.begin(), tail_.end());
  return appended;
}

}  // namespace tessary
