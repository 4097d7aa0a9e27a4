#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "TessaryLocalization/LocalizationCatalog.h"

/// Messages in the languages of the product. A message's key is its Korean text with numbered placeholders; a catalog
/// for each language holds the translations.
///
///     L10n::text("{0}개 문서", {"3"}, 3);         // "3 documents", in the language now selected
///     L10n::display(storedSentence);             // written in any language, now read in the selected one
///
/// Every function may be called from any thread. The catalogs are loaded at the first call that needs one; a bundle
/// that is not there and a catalog that cannot be read are faults of the package and end the process, with the reason
/// on standard error.
namespace tessary::L10n {

/// The most bytes of a sentence that `display` takes apart. A longer one is still known by its whole text.
inline constexpr std::size_t maximumSentenceBytes = 8192;

/// The message of `key` with its placeholders filled.
///
/// `language` is a code such as "zh-Hant"; absent means the one now selected, and one without a catalog reads English.
/// With a `count` the form of the language for that number is taken where the message has one. A message that the
/// catalog lacks is looked for in English, and at last the key itself serves.
///
/// "{n}" is filled with argument number n, counted from 0. n is ASCII digits with or without a sign, as an integer is
/// read everywhere, so "{+0}", "{-0}" and "{00}" are "{0}". All other braces, and placeholders without an argument,
/// stay in the text. Braces that are not a character (grapheme cluster) of their own, as with an accent on them, are
/// none.
[[nodiscard]] std::string text(std::string_view key, std::span<const std::string> arguments = {},
                               std::optional<std::int64_t> count = {}, std::optional<std::string_view> language = {});

/// The same with arguments written at the call.
[[nodiscard]] std::string text(std::string_view key, std::initializer_list<std::string_view> arguments,
                               std::optional<std::int64_t> count = {}, std::optional<std::string_view> language = {});

/// A sentence that was stored earlier, in any language, written in `language`; absent means the one now selected. What
/// is not known comes back unchanged, and so does what no message can have written, whatever bytes it holds.
///
/// Known are every key and every wording of a message in any language, and, in sentences of at most
/// `maximumSentenceBytes`, the wordings of the messages that may be stored, with texts of at most 2,048 scalars without
/// a line end in the place of their placeholders. A number that chose the plural form chooses it again, in whatever
/// script it was written; an argument that is itself a word of the catalogs (a sound's name) is written in the new
/// language too. Broken UTF-8 in an argument becomes U+FFFD. Takes linear time.
[[nodiscard]] std::string display(std::string_view text, std::optional<std::string_view> language = {});

/// The codes of the catalogs that the package has, in ascending order.
[[nodiscard]] std::vector<std::string> availableCatalogLanguages();

/// The catalog of exactly this language; null where there is none. It lives as long as the process and never changes.
[[nodiscard]] const LocalizationCatalog* catalog(std::string_view language);

/// The contents of the files of a folder of this module's resources whose names end in ".json", in the order of their
/// file URLs. So other modules carry data of their own beside the catalogs. `folder` is a relative path, empty for the
/// folder of the catalogs; nothing is in one that does not exist. What cannot be read is left out.
[[nodiscard]] std::vector<std::string> resourceFiles(std::string_view folder);

}  // namespace tessary::L10n
