#pragma once

// The rows of a record's table: a key, the member that holds its value, and the rule by which it is read and written.
// JSONRecord.h shows them in use.

#include <concepts>
#include <cstdint>
#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>

#include "TessaryPlatform/json/JSONDecoding.h"
#include "TessaryPlatform/json/JSONForm.h"
#include "TessaryPlatform/json/JSONReader.h"
#include "TessaryPlatform/values/ForcedRange.h"
#include "TessaryPlatform/values/RawValue.h"

namespace tessary {

/// A key as a literal; one that would have to be escaped does not compile.
struct JSONKey {
  std::string_view text;

  // NOLINTNEXTLINE(google-explicit-constructor): a literal is what rows are written with.
  consteval JSONKey(const char* literal) : text(literal) {
    for (const char byte : text) {
      if (byte < 0x20 || byte == '"' || byte == '\\') throw "a key that needs escapes";
    }
  }
};

namespace json {

/// A rule says three things of a member: how a value that is there and is not null is read, what becomes of the member
/// where the key is missing or null (false: it must be there), and whether the member is written.

struct Required {
  template <class Member>
  bool read(JSONReader& reader, Member& member) const {
    static_assert(!isOptional<Member>, "an optional member is read by the rule `optional`");
    return readValue(reader, member);
  }
  template <class Member>
  bool settleAbsent(Member&) const {
    return false;
  }
};

struct Optional {
  template <class Member>
  bool read(JSONReader& reader, Member& member) const {
    static_assert(isOptional<Member>, "a member that can be absent is a std::optional or an OptionalBox");
    return readValue(reader, member.emplace());
  }
  template <class Member>
  bool settleAbsent(Member& member) const {
    member.reset();
    return true;
  }
};

/// `Otherwise` is a value from which the member can be assigned, or a function that makes one.
template <class Otherwise>
struct Defaulted {
  Otherwise otherwise;

  template <class Member>
  bool read(JSONReader& reader, Member& member) const {
    return readValue(reader, member);
  }
  template <class Member>
  bool settleAbsent(Member& member) const {
    if constexpr (std::invocable<Otherwise>) {
      member = otherwise();
    } else {
      member = otherwise;
    }
    return true;
  }
};

struct Clamped {
  ForcedRange range;

  bool read(JSONReader& reader, double& member) const {
    if (!reader.read(member)) return false;
    member = range.forced(member);
    return true;
  }
  bool settleAbsent(double& member) const {
    member = range.otherwise;
    return true;
  }
};

template <class E>
struct Tolerant {
  E otherwise;

  bool read(JSONReader& reader, E& member) const {
    std::string_view text;
    if (!reader.readText(text)) return false;
    member = fromRawValue<E>(text).value_or(otherwise);
    return true;
  }
  bool settleAbsent(E& member) const {
    member = otherwise;
    return true;
  }
};

struct TolerantOptional {
  template <class E>
  bool read(JSONReader& reader, std::optional<E>& member) const {
    std::string_view text;
    if (!reader.readText(text)) return false;
    member = fromRawValue<E>(text);
    return true;
  }
  template <class E>
  bool settleAbsent(std::optional<E>& member) const {
    member.reset();
    return true;
  }
};

struct TolerantList {
  template <class E>
  bool read(JSONReader& reader, std::vector<E>& member) const {
    member.clear();
    return readElements(reader, [&] {
      std::string_view text;
      if (!reader.readText(text)) return false;
      if (const std::optional<E> element = fromRawValue<E>(text)) member.push_back(*element);
      return true;
    });
  }
  template <class E>
  bool settleAbsent(std::vector<E>& member) const {
    member.clear();
    return true;
  }
};

template <class Rule, class Repair>
struct Repaired {
  Rule rule;
  Repair repair;

  template <class Member>
  bool read(JSONReader& reader, Member& member) const {
    if (!rule.read(reader, member)) return false;
    member = repair(std::move(member));
    return true;
  }
  template <class Member>
  bool settleAbsent(Member& member) const {
    return rule.settleAbsent(member);
  }
};

}  // namespace json

/// One row.
template <class Record, class Member, class Rule>
struct JSONField {
  JSONKey key;
  Member Record::* member;
  Rule rule;

  /// The same row, with every value that was read passed through `repair`, which takes and gives a member's value. What
  /// the rule puts in for a missing key is not passed through.
  template <class Repair>
  constexpr auto repaired(Repair repair) const {
    return JSONField<Record, Member, json::Repaired<Rule, Repair>>{key, member, {rule, repair}};
  }
};

/// Must be there and not be null.
template <class Record, class Member>
constexpr auto required(JSONKey key, Member Record::* member) {
  return JSONField<Record, Member, json::Required>{key, member, {}};
}

/// May be missing; the member, a std::optional, is absent then, and an absent member is not written.
template <class Record, class Member>
constexpr auto optional(JSONKey key, Member Record::* member) {
  return JSONField<Record, Member, json::Optional>{key, member, {}};
}

/// May be missing, and is `otherwise` then; always written. `otherwise` is a value, or a function without a capture
/// that makes one, for values that no constant can hold.
template <class Record, class Member, class Otherwise>
constexpr auto defaulted(JSONKey key, Member Record::* member, Otherwise otherwise) {
  return JSONField<Record, Member, json::Defaulted<Otherwise>>{key, member, {otherwise}};
}

/// May be missing, and is empty, or what its type makes it, then; always written.
template <class Record, class Member>
constexpr auto defaulted(JSONKey key, Member Record::* member) {
  return defaulted(key, member, [] { return Member(); });
}

/// A number that is forced into a range; `range.otherwise` where it is missing. Always written.
template <class Record>
constexpr auto clamped(JSONKey key, double Record::* member, ForcedRange range) {
  return JSONField<Record, double, json::Clamped>{key, member, {range}};
}

/// A raw value that is `otherwise` where it is missing or unknown; only a value that is no text is an error. Always
/// written.
template <class Record, RawRepresentable E>
constexpr auto tolerant(JSONKey key, E Record::* member, E otherwise) {
  return JSONField<Record, E, json::Tolerant<E>>{key, member, {otherwise}};
}

/// A raw value that is absent where it is missing or unknown, and not written when absent.
template <class Record, RawRepresentable E>
constexpr auto tolerant(JSONKey key, std::optional<E> Record::* member) {
  return JSONField<Record, std::optional<E>, json::TolerantOptional>{key, member, {}};
}

/// A list of raw values of which unknown ones are dropped; empty where it is missing. Always written.
template <class Record, RawRepresentable E>
constexpr auto tolerant(JSONKey key, std::vector<E> Record::* member) {
  return JSONField<Record, std::vector<E>, json::TolerantList>{key, member, {}};
}

}  // namespace tessary
