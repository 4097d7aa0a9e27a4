#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "TessaryPlatform/values/RawValue.h"

namespace tessary {

/// Why a change to the library was refused. The raw value is what crosses from one process to another.
enum class LibraryMutationError : std::uint8_t {
  /// Nothing can be changed in this environment.
  unsupported,
  /// The document was changed by somebody else in the meantime.
  conflict,
  /// There is no such document or folder.
  notFound,
  /// The content or the name that was given cannot be taken.
  invalidInput,
  /// The library's own file cannot be read.
  invalidLibrary,
  /// The stored copy of that version has been given up.
  snapshotReleased,
  /// The original file is not there.
  sourceUnavailable,
  /// The original file is no longer what was collected.
  sourceChanged,
};

/// A row with the message for the reader.
struct LibraryMutationErrorRow {
  LibraryMutationError value;
  std::string_view rawValue;
  std::string_view messageKey;
};

template <>
struct RawValues<LibraryMutationError> {
  using enum LibraryMutationError;
  static constexpr auto table = std::to_array<LibraryMutationErrorRow>({
      {unsupported, "unsupported", "이 환경에서는 문서함 변경을 지원하지 않습니다."},
      {conflict, "conflict", "문서가 수정되었습니다. 최신 버전을 다시 열고 변경 내용을 확인해 주세요."},
      {notFound, "notFound", "문서 또는 폴더를 찾을 수 없습니다. 문서함을 새로고침해 주세요."},
      {invalidInput, "invalidInput", "문서 내용이나 폴더 이름을 확인해 주세요."},
      {invalidLibrary, "invalidLibrary", "문서함 데이터를 읽을 수 없습니다. 원본 데이터를 확인해 주세요."},
      {snapshotReleased, "snapshotReleased", "이 버전의 임시 사본은 정리되었습니다."},
      {sourceUnavailable, "sourceUnavailable", "원본 파일을 찾을 수 없습니다. 이동하거나 삭제했는지 확인해 주세요."},
      {sourceChanged, "sourceChanged", "원본이 변경되어 수집 당시 버전을 표시할 수 없습니다."},
  });
};

/// What the error means to the user, in the language now selected.
[[nodiscard]] std::string errorDescription(LibraryMutationError error);

}  // namespace tessary
