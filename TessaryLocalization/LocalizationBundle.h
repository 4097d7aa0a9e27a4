#pragma once

#include <expected>
#include <string>
#include <string_view>
#include <vector>

/// The folder of resources that belongs to this module: catalogs, and what other modules keep beside them.
///
/// It is a folder `Tessary_TessaryLocalization.bundle` with the resources in a folder `Resources` inside. It is looked
/// for in two places:
///
/// 1. beside the running executable, where a build of this tree and a host that ships in one folder have it;
/// 2. in the installed share folder, "share/tessary" of an installation. For an executable in a folder "bin" that has a
///    "share/tessary" next to it, this is that folder, so an installation may be moved as a whole; for every other
///    executable it is the one that the build was configured for.
namespace tessary::LocalizationBundle {

/// The name of the bundle, in either place.
inline constexpr std::string_view folderName = "Tessary_TessaryLocalization.bundle";

/// The two paths at which the bundle may lie, the first to be tried first.
struct Places {
  std::string besideExecutable;
  std::string installed;

  bool operator==(const Places&) const = default;
};

/// The places for an executable at an absolute path. `shareFolder` is where the build was configured to install its
/// resources.
[[nodiscard]] Places places(std::string_view executable, std::string_view shareFolder);

/// The places for this process.
[[nodiscard]] Places places();

/// The path of the resources inside the bundle that is there. The error is the text for a bundle that is in neither
/// place; it names both.
[[nodiscard]] std::expected<std::string, std::string> resources(const Places& places);

/// The resources of this process, found at the first call. A bundle that is not there ends the process.
[[nodiscard]] const std::string& sharedResources();

/// Ends the process for a fault of the package: writes `text` and a line end to standard error and aborts.
[[noreturn]] void fail(std::string_view text);

/// Why a file could not be read.
struct FileError {
  /// True where nothing is there.
  bool isMissing;
  /// In the words of the C library.
  std::string reason;

  bool operator==(const FileError&) const = default;
};

/// The bytes of a file.
[[nodiscard]] std::expected<std::string, FileError> readFile(const std::string& path);

/// The contents of the files of `folder` whose names end in ".json", in the order of their file URLs, that is of their
/// percent-encoded names by bytes. Folders inside are not entered. What cannot be read is left out; of a folder that is
/// not there nothing is.
[[nodiscard]] std::vector<std::string> jsonFiles(const std::string& folder);

}  // namespace tessary::LocalizationBundle
