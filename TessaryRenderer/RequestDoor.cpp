#include "TessaryRenderer/RequestDoor.h"

#include <cstddef>
#include <optional>

#include "TessaryPlatform/json/JSONSyntax.h"
#include "TessaryRenderer/RendererLimits.h"

namespace tessary {

std::expected<void, RendererFailure> checkRequest(std::string_view request) {
  bool isRender = false;
  std::optional<std::size_t> sourceBytes;
  const auto top = walkJSON(request, [&](const JSONMember& member) {
    if (member.key == "operation") {
      isRender = member.text == "render";
    } else if (member.key == "text") {
      sourceBytes = member.text.transform([](std::string_view text) { return text.size(); });
    }
  });
  if (!top) return std::unexpected(RendererFailures::other);
  if (*top == JSONKind::array) return std::unexpected(RendererFailures::requestNotObject);
  if (*top != JSONKind::object) return std::unexpected(RendererFailures::other);
  if (isRender && (!sourceBytes || *sourceBytes > RendererLimits::sourceBytes))
    return std::unexpected(RendererFailures::sourceTooLarge);
  return {};
}

}  // namespace tessary
