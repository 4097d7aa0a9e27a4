// What an editor looks for in every text of a catalog, as far as it can be told without reading the language.

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <unicode/translit.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "TessaryPlatform/text/Normalization.h"
#include "TessaryPlatform/text/UTF8.h"

#include "CatalogFiles.h"

namespace tessary {
namespace {

/// How a language writes.
struct Typography {
  std::string_view code;
  /// What ends a sentence; empty in Thai, whose sentences end without a mark.
  std::string_view fullStop;
  /// The quotation marks and apostrophes that may occur.
  std::u32string_view quotes;
};

constexpr auto typographies = std::to_array<Typography>({
    {"de", ".", U"„“"},
    {"en", ".", U"“”’"},
    {"es", ".", U"«»"},
    {"fr", ".", U"«»’"},
    {"ja", "。", U"「」"},
    {"ko", ".", U"‘’"},
    {"mn", ".", U"«»"},
    {"ru", ".", U"«»"},
    {"th", "", U"“”"},
    {"vi", ".", U"“”"},
    {"zh-HK", "。", U"「」"},
    {"zh-Hans", "。", U"“”"},
    {"zh-Hant", "。", U"「」"},
});

constexpr std::u32string_view allQuotes = U"\"'`“”„‟‘’‚‛«»‹›「」『』〝〞＂＇";

/// Words that the readers of one Chinese catalog know only from another place.
struct ForeignWords {
  std::string_view code;
  std::string_view words;
};

constexpr auto foreignWords = std::to_array<ForeignWords>({
    {"zh-Hans", "档案 软体 资讯 程式 影片 设定 伺服器 简报 网路 资料夹 滑鼠 萤幕 预设"},
    {"zh-Hant", "軟件 視頻 短片 文檔 信息 設置 用戶 代碼 默認 打印 菜單 數據 屏幕 鼠標 文件夾 網絡 程序 運行 反饋"},
    {"zh-HK", "軟體 視頻 文檔 信息 設置 使用者 代碼 默認 菜單 屏幕 鼠標 文件夾 網路 程序 部落格 反饋"},
});

/// Calls `check` with the catalog, the key and the text for everything that a catalog can say.
void forEachText(const std::function<void(const CatalogFile&, const std::string&, const std::string&)>& check) {
  for (const CatalogFile& file : catalogFiles()) {
    for (const auto& [key, message] : file.messages) {
      for (const std::string& text : file.texts(key))
        check(file, key, text);
    }
  }
}

const Typography& typographyOf(const CatalogFile& file) {
  static const Typography none{};
  const auto found = std::ranges::find(typographies, file.code, &Typography::code);
  EXPECT_NE(found, typographies.end()) << file.code;
  return found == typographies.end() ? none : *found;
}

bool isDuration(std::string_view key) {
  return key.starts_with('%');
}

TEST(CatalogWording, IsNeverEmptyAndHasNoStrayBlanks) {
  forEachText([](const CatalogFile& file, const std::string&, const std::string& text) {
    const std::u32string scalars = toScalars(text);
    ASSERT_FALSE(scalars.empty()) << file.code;
    EXPECT_FALSE(u_isUWhiteSpace(static_cast<UChar32>(scalars.front()))) << file.code << " [" << text << "]";
    EXPECT_FALSE(u_isUWhiteSpace(static_cast<UChar32>(scalars.back()))) << file.code << " [" << text << "]";
    EXPECT_EQ(text.find("  "), std::string::npos) << file.code << " [" << text << "]";
  });
}

TEST(CatalogWording, HoldsNoControlCharacterAndIsComposed) {
  forEachText([](const CatalogFile& file, const std::string&, const std::string& text) {
    for (const char32_t scalar : toScalars(text)) {
      const auto category = u_charType(static_cast<UChar32>(scalar));
      EXPECT_TRUE(category != U_CONTROL_CHAR && category != U_FORMAT_CHAR && scalar != replacementCharacter)
          << file.code << " " << text << " U+" << std::hex << static_cast<std::uint32_t>(scalar);
    }
    EXPECT_EQ(text, normalizedToFormC(text)) << file.code;
  });
}

TEST(CatalogWording, LeavesNoKoreanOutsideTheKoreanCatalog) {
  forEachText([](const CatalogFile& file, const std::string&, const std::string& text) {
    if (file.code == "ko") return;
    for (const char32_t scalar : toScalars(text))
      EXPECT_FALSE(scalar >= U'가' && scalar <= U'힣') << file.code << " " << text;
  });
}

TEST(CatalogWording, EndsASentenceWhereTheKeyDoes) {
  forEachText([](const CatalogFile& file, const std::string& key, const std::string& text) {
    if (isDuration(key)) return;
    const bool endsWithMark = text.ends_with('.') || text.ends_with("。");
    const std::string_view fullStop = typographyOf(file).fullStop;
    if (key.ends_with('.') && !fullStop.empty()) {
      EXPECT_TRUE(text.ends_with(fullStop)) << file.code << " " << text;
    } else {
      EXPECT_FALSE(endsWithMark) << file.code << " " << text;
    }
  });
}

TEST(CatalogWording, QuotesAsTheLanguageDoes) {
  forEachText([](const CatalogFile& file, const std::string&, const std::string& text) {
    for (const char32_t scalar : toScalars(text)) {
      if (allQuotes.find(scalar) == std::u32string_view::npos) continue;
      EXPECT_NE(typographyOf(file).quotes.find(scalar), std::u32string_view::npos) << file.code << " " << text;
    }
  });
}

// A blank that may not be broken holds the mark to its word.
TEST(CatalogWording, KeepsFrenchMarksWithTheirWords) {
  forEachText([](const CatalogFile& file, const std::string&, const std::string& text) {
    if (file.code != "fr") return;
    const std::u32string scalars = toScalars(text);
    for (std::size_t index = 0; index < scalars.size(); ++index) {
      const auto holds = [&](std::size_t place) { return place < scalars.size() && scalars[place] == U'\u00A0'; };
      const bool isOpened = scalars[index] == U'«';
      const bool isClosed = std::u32string_view(U"»:;!?").find(scalars[index]) != std::u32string_view::npos;
      EXPECT_TRUE(!isOpened || holds(index + 1)) << text;
      EXPECT_TRUE(!isClosed || (index > 0 && holds(index - 1))) << text;
    }
  });
}

TEST(CatalogWording, OfMainlandChinaIsInSimplifiedCharacters) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::Transliterator> simplify(
      icu::Transliterator::createInstance("Hant-Hans", UTRANS_FORWARD, status));
  ASSERT_TRUE(U_SUCCESS(status));
  forEachText([&](const CatalogFile& file, const std::string&, const std::string& text) {
    if (file.code != "zh-Hans") return;
    icu::UnicodeString simplified = icu::UnicodeString::fromUTF8(text);
    simplify->transliterate(simplified);
    EXPECT_EQ(simplified, icu::UnicodeString::fromUTF8(text)) << text;
  });
}

TEST(CatalogWording, OfTaiwanAndHongKongIsInTraditionalCharacters) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::Transliterator> complicate(
      icu::Transliterator::createInstance("Hans-Hant", UTRANS_FORWARD, status));
  ASSERT_TRUE(U_SUCCESS(status));
  forEachText([&](const CatalogFile& file, const std::string&, const std::string& text) {
    if (file.code != "zh-Hant" && file.code != "zh-HK") return;
    icu::UnicodeString traditional = icu::UnicodeString::fromUTF8(text);
    complicate->transliterate(traditional);
    EXPECT_EQ(traditional, icu::UnicodeString::fromUTF8(text)) << file.code << " " << text;
  });
}

TEST(CatalogWording, OfOneChinesePlaceDoesWithoutTheWordsOfAnother) {
  for (const auto& [code, words] : foreignWords) {
    for (std::string_view rest = words; !rest.empty();) {
      const std::string_view word = rest.substr(0, rest.find(' '));
      rest.remove_prefix(std::min(word.size() + 1, rest.size()));
      for (const auto& [key, message] : catalogFile(code).messages) {
        for (const std::string& text : catalogFile(code).texts(key))
          EXPECT_EQ(text.find(word), std::string::npos) << code << " " << word << " in " << text;
      }
    }
  }
}

TEST(CatalogWording, ForTaiwanAndHongKongIsNotTheSame) {
  EXPECT_NE(catalogFile("zh-Hant").messages, catalogFile("zh-HK").messages);
}

}  // namespace
}  // namespace tessary
