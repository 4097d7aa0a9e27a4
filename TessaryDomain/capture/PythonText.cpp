#include "TessaryDomain/capture/PythonText.h"

namespace tessary::PythonText {

bool isSpace(char32_t scalar) noexcept {
  if (scalar <= 0x20) return (scalar >= 0x09 && scalar <= 0x0D) || scalar >= 0x1C;
  return scalar == 0x85 || scalar == 0xA0 || scalar == 0x1680 || (scalar >= 0x2000 && scalar <= 0x200A) ||
         scalar == 0x2028 || scalar == 0x2029 || scalar == 0x202F || scalar == 0x205F || scalar == 0x3000;
}

}  // namespace tessary::PythonText
