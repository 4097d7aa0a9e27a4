// The entry of a fuzz target in a build without libFuzzer: every file of the corpus folders named on the command line
// is handed to the target once. A crash or a broken property ends the process, and so fails the test.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argumentCount, char** arguments) {
  std::size_t replayed = 0;
  for (int index = 1; index < argumentCount; ++index) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(arguments[index])) {
      if (!entry.is_regular_file()) continue;
      std::ifstream file(entry.path(), std::ios::binary);
      const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
      LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
      ++replayed;
    }
  }
  std::printf("%zu inputs replayed\n", replayed);
  // A target whose corpus has gone missing tests nothing.
  return replayed > 0 ? 0 : 1;
}
