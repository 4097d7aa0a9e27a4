#pragma once

#include <optional>
#include <string>
#include <string_view>

/// POSIX paths as the platform treats them: bytes, separated by "/". (What the capture rules do to paths follows
/// CPython instead and lives with capture.)
///
/// Only `resolvingLinks` looks at files, and only `environmentValue` at the process. The folders on which an answer
/// depends are arguments.
namespace tessary::Paths {

/// How many links are followed on the way to one answer; as many as the kernel follows.
inline constexpr int maximumLinks = 40;

/// The value of an environment variable; absent where it is not set. No other thread may change the environment
/// meanwhile.
[[nodiscard]] std::optional<std::string> environmentValue(const std::string& name);

/// The user's home folder, from the value of the variable HOME, without slashes at its end. Absent where that is absent
/// or no absolute path.
[[nodiscard]] std::optional<std::string> homeFolder(std::optional<std::string_view> home = environmentValue("HOME"));

/// The folder for temporary files, from the value of the variable TMPDIR, without slashes at its end; "/tmp" where that
/// is absent or no absolute path.
[[nodiscard]] std::string temporaryFolder(std::optional<std::string_view> tmpdir = environmentValue("TMPDIR"));

/// `path` with a "~" that is the whole of it, or stands in front of its first "/", replaced by `home`. Every other path
/// stays as it is, "~user" too: other users' homes are not looked up.
[[nodiscard]] std::string expandingTilde(std::string_view path, std::string_view home);

/// `name` below `folder`, with one "/" between them however many `folder` ends with. An empty `folder` gives `name`.
[[nodiscard]] std::string appending(std::string_view folder, std::string_view name);

/// An absolute path without ".", "..", doubled slashes and slashes at its end, by its text alone: no file is looked at,
/// so ".." undoes the component before it even where that is a link. ".." of the root is the root. Absent for a path
/// that does not begin with "/".
[[nodiscard]] std::optional<std::string> standardized(std::string_view path);

/// The path of the same file with every symbolic link replaced by what it leads to, and standardised. ".." behind a
/// link leads out of the link's target, as it does when the file is opened. What does not exist or may not be looked
/// at is kept by its text.
///
/// `path` and links are read as if `root` were "/"; nothing leads out of it, and the answer is again seen from there.
/// Two answers are given without following links: `path` itself where it is not absolute or holds a byte 0, and the
/// standardised path where more than `maximumLinks` links, perhaps in a circle, stand in the way.
[[nodiscard]] std::string resolvingLinks(std::string_view path, std::string_view root = "/");

/// The last component, slashes behind it left aside: "c.md" of "/a/b/c.md/". "/" for a path of slashes alone, empty for
/// an empty path.
[[nodiscard]] std::string_view lastComponent(std::string_view path);

/// What stands behind the last "." of the last component: "md" of "/a/b.txt.md". Empty where there is no ".", where
/// nothing follows it, and where nothing but dots precedes it (".profile" is a name, not an extension).
[[nodiscard]] std::string_view extension(std::string_view path);

}  // namespace tessary::Paths
