#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// Event times as Python's `datetime.fromisoformat` reads them.
namespace tessary::PythonISOTimestamp {

/// The microseconds from 1970-01-01T00:00:00 UTC to the time that `text` names, negative before it; absent for a text
/// that names none.
///
/// The grammar is the one that CPython 3.14 implements in C, with the leniency that its users rely on without knowing:
/// any single character between date and time, also a multi-byte one; dates and times with or without separators; ISO
/// week dates ("2026-W01-1"); 24:00 as the start of the next day; any number of digits behind "." or ",", of which six
/// count and the rest are cut off, not rounded; offsets down to the microsecond, less than 24 hours either way; and
/// text in a few places, as between the fraction and the offset, that is never looked at.
///
/// Stricter than Python: a time without an offset or "Z" is absent, for it names no point in time, and so is a date
/// alone; and "." or "," directly behind the hours or the minutes is refused also where an offset follows.
///
/// `text` is UTF-8, and any bytes are taken. Allocates nothing; linear in the text's length.
[[nodiscard]] std::optional<std::int64_t> microseconds(std::string_view text) noexcept;

}  // namespace tessary::PythonISOTimestamp
