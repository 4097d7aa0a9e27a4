#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace tessary::testing {

/// A folder of its own for one test, removed with all that is in it. What the system refuses ends the test.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = std::filesystem::temp_directory_path() / "tessary-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = std::filesystem::canonical(name);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  /// Absolute and without links.
  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  /// The path of `name` in the folder, whether anything is there or not.
  [[nodiscard]] std::string path(std::string_view name) const { return path_ / name; }

  /// Writes a file, with the folders on the way to it; gives its path.
  std::string write(std::string_view name, std::string_view bytes) const {
    const std::filesystem::path file = path_ / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!stream.flush()) throw std::runtime_error("cannot write a test file");
    return file;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace tessary::testing
