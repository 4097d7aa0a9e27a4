// Python's string methods and paths on any bytes, held to what must be true of their answers whatever the text is.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "TessaryDomain/capture/PythonPath.h"
#include "TessaryDomain/capture/PythonText.h"
#include "support/Require.h"

namespace {

using namespace tessary;

using tessary::testing::require;

void checkPieces(std::string_view text) {
  const std::string_view stripped = PythonText::strip(text);
  require(PythonText::strip(stripped) == stripped);
  for (const std::string_view word : PythonText::split(text)) {
    require(!word.empty() && PythonText::strip(word) == word && PythonText::split(word).size() == 1);
    require(PythonText::contains(stripped, word));
  }
  for (const std::string_view line : PythonText::splitlines(text))
    require(line.empty() || PythonText::splitlines(line).size() == 1);
  std::string joined;
  for (const std::string_view piece : PythonText::components(text, U'/'))
    joined.append(piece).push_back('/');
  joined.pop_back();
  require(joined == text);
  const std::string folded = PythonText::casefold(text);
  require(PythonText::casefold(folded) == folded);
  std::string storage;
  require(PythonText::casefold(text, storage) == folded);
}

void checkPaths(std::string_view text) {
  const std::string normal = PythonText::normpath(text);
  require(PythonText::normpath(normal) == normal);
  if (PythonText::isNormalAbsolute(text)) require(normal == text);
  std::string storage;
  require(PythonText::normpath(text, storage) == normal);

  const PythonPath path(text);
  require(PythonPath(path.string()) == path);
  require(path.contains(path) && !path.isParent(path));
  require(path.name().ends_with(path.suffix()));
  require(PythonPath::nameOf(text) == path.name());
  const PythonPath parent = path.parent();
  require(parent.contains(path));
  if (!path.tail().empty()) require(parent.isParent(path) && parent.appending(path.name()) == path);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  checkPieces(text);
  checkPaths(text);
  return 0;
}
