#pragma once

#include <cstddef>
#include <optional>
#include <ranges>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tessary {

/// A POSIX path as Python's `pathlib.PurePosixPath` sees it, reduced to what the capture rules ask. The authority is
/// CPython 3.14. Nothing asks the file system, and ".." is not collapsed: `PythonText::normpath` does that.
///
/// Text is UTF-8, compared exactly; "\" is an ordinary character; ill-formed bytes are kept as they are.
class PythonPath {
 public:
  /// A text cut behind its root.
  struct Split {
    std::string_view root;
    std::string_view rest;
  };

  /// `posixpath.splitroot` without its drive. The root is "" for a text that does not begin with "/", "//" for one that
  /// begins with exactly two, which POSIX gives a meaning of their own, and else "/". The rest is all that follows the
  /// root, further slashes included: "///a" gives "/" and "//a". Views into the text, or of static text.
  [[nodiscard]] static Split splitRoot(std::string_view text) noexcept;

  /// The name of `PythonPath(text)`, without the parsing: a view into the text. For who asks nothing else of many
  /// paths.
  [[nodiscard]] static std::string_view nameOf(std::string_view text) noexcept;

  /// The suffix of a path with this name: a view into it.
  [[nodiscard]] static std::string_view suffixOf(std::string_view name) noexcept;

  /// Parses any text; empty components and "." are dropped.
  explicit PythonPath(std::string_view text);

  /// "", "/" or "//".
  [[nodiscard]] const std::string& root() const& noexcept { return root_; }
  [[nodiscard]] std::string root() && noexcept { return std::move(root_); }

  /// The components behind the root, in order, none of them empty or ".".
  [[nodiscard]] const std::vector<std::string>& tail() const& noexcept { return tail_; }
  [[nodiscard]] std::vector<std::string> tail() && noexcept { return std::move(tail_); }

  /// `str(path)`: the root and the tail joined with "/", and "." for the empty path.
  [[nodiscard]] std::string string() const;

  /// The root if it is not "", then the tail.
  [[nodiscard]] std::vector<std::string> parts() const;

  /// The last component, "" if there is none. A view into the path, or its own text where the path is a temporary.
  [[nodiscard]] std::string_view name() const& noexcept;
  [[nodiscard]] std::string name() && { return std::string(std::as_const(*this).name()); }

  /// The name from its last "." on, where one stands behind the run of "." that the name may begin with: "a.tar.gz"
  /// gives ".gz", ".bashrc" gives "", and "foo." gives ".", as `pathlib` does since Python 3.14. A view into the path,
  /// or its own text where the path is a temporary.
  [[nodiscard]] std::string_view suffix() const& noexcept;
  [[nodiscard]] std::string suffix() && { return std::string(std::as_const(*this).suffix()); }

  /// The path without its last component; itself where there is none.
  [[nodiscard]] PythonPath parent() const;

  /// The paths with all but the last 1, 2, ... of the components, nearest first, down to the bare root; none for a path
  /// without components. Each is made when it is asked for, as Python does, so that a path of many components does not
  /// cost the square of their number at once. The path must outlive the range.
  [[nodiscard]] auto parents() const& {
    return std::views::iota(std::size_t{1}, tail_.size() + 1) |
           std::views::transform([this](std::size_t count) { return withoutLast(count); });
  }
  auto parents() const&& = delete;

  /// The components by which this path goes on behind `to`, none where the two are equal; absent where the roots
  /// differ or `to` does not lead here. ".." counts as any other component.
  [[nodiscard]] std::optional<std::vector<std::string>> relativeParts(const PythonPath& to) const;

  /// Equal roots and equal tails.
  [[nodiscard]] bool equals(const PythonPath& other) const noexcept { return *this == other; }
  bool operator==(const PythonPath&) const = default;

  /// True if this path leads to `of`, and `of` has further components.
  [[nodiscard]] bool isParent(const PythonPath& of) const noexcept;

  /// True if this path leads to `other` or equals it.
  [[nodiscard]] bool contains(const PythonPath& other) const noexcept;

  /// `path / text`: `text` parsed, alone if it has a root, else behind this path.
  [[nodiscard]] PythonPath appending(std::string_view text) const;

 private:
  PythonPath(std::string root, std::vector<std::string> tail) : root_(std::move(root)), tail_(std::move(tail)) {}

  /// `count` is at most the number of components.
  [[nodiscard]] PythonPath withoutLast(std::size_t count) const;

  std::string root_;
  std::vector<std::string> tail_;
};

}  // namespace tessary
