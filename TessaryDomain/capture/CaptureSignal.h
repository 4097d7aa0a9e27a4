#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "TessaryDomain/capture/CaptureSources.h"
#include "TessaryPlatform/json/JSONValue.h"

/// A signal: the harmless summary of a hook event that a hook process leaves for the capture service. It is a file in
/// the folder `directory` that holds what `encode` wrote. Reading, queueing and the counting of files are the host's.
namespace tessary::CaptureSignal {

/// The folder of the signal files.
inline constexpr std::string_view directory = "signals";
/// The largest signal, in bytes.
inline constexpr std::size_t maximumBytes = 65536;
/// How many signal files may wait; to more than these none is added.
inline constexpr std::size_t maximumPending = 512;
/// The largest hook input that is read, in bytes.
inline constexpr std::size_t maximumInputBytes = 4194304;

/// The keys of a hook event that a signal takes over with whatever value they have, in the order in which it does.
inline constexpr std::array<std::string_view, 16> fields = {
    "hook_event_name",
    "session_id",
    "cwd",
    "model",
    "transcript_path",
    "tool_name",
    "tool_use_id",
    "timestamp",
    "turn_id",
    "response_id",
    "message_id",
    "parent_session_id",
    "isSidechain",
    "agent_id",
    "_tessaryProfile",
    "_tessaryLocalIngress",
};

/// The signal of the hook event `payload`: `{"version": 1, "source": source, "payload": P}` as `pythonJSON` writes it.
///
/// P holds, in this order, where the event has them: the `fields`; "tool_input"; "tool_response", reduced to "success"
/// and "error"; and with `includesResponses` the texts "last_assistant_message" and "assistant_response". Of the tool's
/// input only the texts "file_path", "path" and "absolute_path" remain, and of a patch in "patch", "input" or "command"
/// the lines that name files. So a signal shows which files a tool touched and none of what it put into them.
///
/// Absent where no signal may be written: a source that is not in `sources`, a payload that is no object, what
/// `pythonJSON` cannot write, and a signal of more than `maximumBytes`. A signal is dropped, never cut.
[[nodiscard]] std::optional<std::string> encode(std::string_view source, const JSONValue& payload,
                                                bool includesResponses, bool sortKeys);

/// What CPython's `json.dumps(value, sort_keys=sortKeys, ensure_ascii=True)` writes for the value, byte by byte: ASCII
/// in one line. An integer is written digit by digit, whatever its size; floating point is laid out as `repr` has it.
///
/// With `sortKeys` the keys of every object ascend by scalar, otherwise they stand in their order. A broken sequence of
/// UTF-8 reads as U+FFFD in texts and keys; keys that hold one are sorted by their bytes.
///
/// Absent if any number in the value is infinite or undefined, which Python would write in words that are no JSON.
/// There is no limit to the nesting, so the text of a value that is nested more than `maximumJSONNesting` deep can be
/// written and not be read by `JSONValue::parse`. A signal is nested one deeper than its payload.
[[nodiscard]] std::optional<std::string> pythonJSON(const JSONValue& value, bool sortKeys);

}  // namespace tessary::CaptureSignal
