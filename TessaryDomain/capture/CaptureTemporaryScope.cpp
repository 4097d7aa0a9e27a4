#include "TessaryDomain/capture/CaptureTemporaryScope.h"

#include <algorithm>

#include "TessaryDomain/capture/PythonPath.h"
#include "TessaryDomain/capture/PythonText.h"

namespace tessary {

namespace {

/// Temporary, but the system's own: no documents are made there.
constexpr auto systemTemporaryRoots = std::to_array<std::string_view>({"/var/folders", "/private/var/folders"});

/// True if `predicate` holds for one of the scope's roots, asked in their order up to that one.
template <typename Predicate>
bool anyRoot(const CaptureTemporaryScope& scope, const Predicate& predicate) {
  if (std::ranges::any_of(CaptureRules::temporaryDocumentRoots, predicate)) return true;
  if (std::ranges::any_of(systemTemporaryRoots, predicate)) return true;
  if (!scope.temporaryDirectory || !scope.temporaryDirectory->starts_with('/')) return false;
  std::string storage;
  if (predicate(PythonText::normpath(*scope.temporaryDirectory, storage))) return true;
  return scope.resolvedTemporaryDirectory && predicate(std::string_view(*scope.resolvedTemporaryDirectory));
}

bool isWithin(std::string_view path, std::string_view root) {
  return path.starts_with(root) && (path.size() == root.size() || path[root.size()] == '/');
}

bool isWithinRoots(std::string_view path, const CaptureTemporaryScope& scope) {
  return anyRoot(scope, [path](std::string_view root) { return isWithin(path, root); });
}

/// Folded names of text files that people do not write to be read.
constexpr WordSet nonDocumentNames(std::to_array<std::string_view>({"cmakelists.txt", "robots.txt"}));

/// What the folded names of such files begin with.
constexpr auto nonDocumentPrefixes =
    std::to_array<std::string_view>({"requirements", "constraints", "license", "copying"});

/// Folded names of folders whose text files are logs.
constexpr WordSet logFolders(std::to_array<std::string_view>({"logs", "log"}));

}  // namespace

std::vector<std::string> CaptureTemporaryScope::roots() const {
  std::vector<std::string> roots;
  anyRoot(*this, [&roots](std::string_view root) {
    roots.emplace_back(root);
    return false;
  });
  return roots;
}

namespace CaptureRules {

bool temporaryLocation(std::string_view path, const CaptureTemporaryScope& scope) {
  std::string storage;
  const std::string_view normal = PythonText::normpath(path, storage);
  if (!isWithinRoots(normal, scope)) return false;
  const std::string_view parent = scope.dataFolderParent;
  if (anyRoot(scope, [parent](std::string_view root) { return root == parent; })) return true;
  if (!isWithinRoots(parent, scope)) return true;
  // The product's data lies in a temporary folder: what is with it stays.
  return !isWithin(normal, parent);
}

bool temporaryDocumentFolder(std::string_view path) {
  std::string storage;
  const std::string_view normal = PythonText::normpath(path, storage);
  const auto holdsPath = [normal](std::string_view root) { return isWithin(normal, root); };
  // No root holds a component that begins with ".", so that one in the path stands behind the root.
  return std::ranges::any_of(temporaryDocumentRoots, holdsPath) && !PythonText::contains(normal, "/.");
}

bool nonDocumentText(std::string_view path) {
  std::string storage;
  const std::string_view name = PythonText::casefold(PythonPath::nameOf(path), storage);
  if (!name.ends_with(".txt")) return false;
  if (PythonText::isMember(name, nonDocumentNames) || name.ends_with(".log.txt")) return true;
  if (std::ranges::any_of(nonDocumentPrefixes, [name](std::string_view prefix) { return name.starts_with(prefix); }))
    return true;
  const std::vector<std::string> parts = PythonPath(path).parent().parts();
  return std::ranges::any_of(parts,
                             [](const std::string& part) { return logFolders.contains(PythonText::casefold(part)); });
}

bool temporaryDocument(std::string_view path) {
  if (!temporaryDocumentFolder(path) || nonDocumentText(path)) return false;
  std::string storage;
  const std::string_view suffix = PythonText::casefold(PythonPath::suffixOf(PythonPath::nameOf(path)), storage);
  return !suffix.empty() && temporaryDocumentExtensions.contains(suffix.substr(1));
}

}  // namespace CaptureRules

}  // namespace tessary
