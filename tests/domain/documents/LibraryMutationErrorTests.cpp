#include <array>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

#include "TessaryDomain/documents/LibraryMutationError.h"
#include "support/SelectedLanguage.h"

namespace tessary {
namespace {

constexpr auto messages = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"unsupported", "이 환경에서는 문서함 변경을 지원하지 않습니다."},
    {"conflict", "문서가 수정되었습니다. 최신 버전을 다시 열고 변경 내용을 확인해 주세요."},
    {"notFound", "문서 또는 폴더를 찾을 수 없습니다. 문서함을 새로고침해 주세요."},
    {"invalidInput", "문서 내용이나 폴더 이름을 확인해 주세요."},
    {"invalidLibrary", "문서함 데이터를 읽을 수 없습니다. 원본 데이터를 확인해 주세요."},
    {"snapshotReleased", "이 버전의 임시 사본은 정리되었습니다."},
    {"sourceUnavailable", "원본 파일을 찾을 수 없습니다. 이동하거나 삭제했는지 확인해 주세요."},
    {"sourceChanged", "원본이 변경되어 수집 당시 버전을 표시할 수 없습니다."},
});

TEST(LibraryMutationError, TellsEachCaseInTheLanguageInUse) {
  const auto cases = allCases<LibraryMutationError>();
  ASSERT_EQ(cases.size(), messages.size());
  const testing::SelectedLanguage korean("ko");
  for (std::size_t index = 0; index < cases.size(); ++index) {
    EXPECT_EQ(rawValue(cases[index]), messages[index].first);
    EXPECT_EQ(errorDescription(cases[index]), messages[index].second);
  }
  const testing::SelectedLanguage english("en");
  EXPECT_EQ(errorDescription(LibraryMutationError::notFound),
            "The document or folder couldn’t be found. Refresh the library.");
}

}  // namespace
}  // namespace tessary
