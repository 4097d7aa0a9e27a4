#include "TessaryPlatform/json/JSONSyntax.h"

#include <string>

#include "TessaryPlatform/json/JSONCursor.h"

namespace tessary {

namespace {

bool visitMember(JSONCursor& cursor, const std::function<void(const JSONMember&)>& visit, std::string& keyStorage,
                 std::string& textStorage) {
  JSONMember member{};
  if (!cursor.readKey(member.key, keyStorage) || !cursor.peekKind(member.kind)) return false;
  if (member.kind == JSONKind::text) {
    if (!cursor.readText(member.text.emplace(), textStorage)) return false;
  } else if (!cursor.skipValue()) {
    return false;
  }
  visit(member);
  return true;
}

bool visitMembers(JSONCursor& cursor, const std::function<void(const JSONMember&)>& visit) {
  std::string keyStorage;
  std::string textStorage;
  if (!cursor.enter()) return false;
  for (bool more = !cursor.leaveIfEmpty('}'); more;) {
    if (!visitMember(cursor, visit, keyStorage, textStorage) || !cursor.continueOrLeave('}', more)) return false;
  }
  return true;
}

}  // namespace

std::expected<JSONKind, JSONSyntaxError> walkJSON(std::string_view text,
                                                  const std::function<void(const JSONMember&)>& visit) {
  if (const auto tokens = JSONTokens::indexed(text)) {
    JSONCursor cursor(*tokens);
    JSONKind kind{};
    const bool visits = cursor.peek() == '{' && visit;
    if (cursor.peekKind(kind) && (visits ? visitMembers(cursor, visit) : cursor.skipValue()) && cursor.finish()) {
      return kind;
    }
  }
  // The slow road refuses what the fast one refuses, so there is a fault to be found.
  return std::unexpected(findJSONFault(text).value_or(JSONSyntaxError{}));
}

}  // namespace tessary
