#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace tessary {

/// A folder of its own for one test, removed with all that is in it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = testing::TempDir() + "tessary-localization-XXXXXX";
    EXPECT_NE(::mkdtemp(name.data()), nullptr);
    path_ = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }

  [[nodiscard]] std::string path() const { return path_.native(); }
  [[nodiscard]] std::string path(std::string_view name) const { return (path_ / name).native(); }

  /// Writes a file, with the folders on the way to it; gives its path.
  std::string write(std::string_view name, std::string_view bytes) const {
    const std::filesystem::path file = path_ / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file.native();
  }

 private:
  std::filesystem::path path_;
};

}  // namespace tessary
