#include "TessaryPlatform/text/RegexSubject.h"

#include <algorithm>
#include <iterator>

#include "TessaryPlatform/text/UTF8.h"

namespace tessary {

namespace {

constexpr std::size_t unitCount(char32_t scalar) {
  return scalar < 0x10000 ? 1 : 2;
}

}  // namespace

RegexSubject::RegexSubject(std::string_view text) : text_(text) {
  if (isASCII(text)) {
    units_.assign(text.begin(), text.end());
    return;
  }
  units_ = toUTF16(text);
  checkpoints_.reserve(units_.size() / checkpointDistance + 1);
  std::size_t unit = 0;
  const ScalarView scalars(text);
  for (auto scalar = scalars.begin(); scalar != scalars.end(); ++scalar) {
    if (unit >= checkpoints_.size() * checkpointDistance) checkpoints_.push_back({unit, scalar.position()});
    unit += unitCount(*scalar);
  }
}

std::size_t RegexSubject::byteOffset(std::size_t unit) const {
  if (unit >= units_.size()) return text_.size();
  if (checkpoints_.empty()) return unit;
  std::size_t index = std::min(unit / checkpointDistance, checkpoints_.size() - 1);
  if (checkpoints_[index].unit > unit) --index;
  std::size_t byte = checkpoints_[index].byte;
  for (std::size_t passed = checkpoints_[index].unit; passed < unit;) {
    const DecodedScalar decoded = decodeScalar(text_, byte);
    passed += unitCount(decoded.scalar);
    byte += decoded.byteCount;
  }
  return byte;
}

std::size_t RegexSubject::unitOffset(std::size_t byte) const {
  if (byte >= text_.size()) return units_.size();
  if (checkpoints_.empty()) return byte;
  const auto behind = std::ranges::upper_bound(checkpoints_, byte, {}, &Checkpoint::byte);
  const Checkpoint& checkpoint = *std::prev(behind);
  std::size_t unit = checkpoint.unit;
  for (std::size_t passed = checkpoint.byte; passed < byte;) {
    const DecodedScalar decoded = decodeScalar(text_, passed);
    unit += unitCount(decoded.scalar);
    passed += decoded.byteCount;
  }
  return unit;
}

}  // namespace tessary
