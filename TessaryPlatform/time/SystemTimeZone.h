#pragma once

#include <string>

namespace tessary {

/// The name of the time zone that this process lives in, for `TimeZone::named`: what the variable TZ says, and without
/// it the zone of the machine (the target of the link /etc/localtime). It is asked anew at each call, so a machine that
/// travels is followed; it costs a few system calls at most.
///
/// Where neither gives a name (TZ holds a rule as "JST-9", /etc/localtime is a copy) it is that of the zone that ICU
/// has found when it was first asked in this process: of a zone without a name that of its offset ("GMT+09:00"), and
/// "UTC" where ICU found none. A name in TZ that no zone has is given as it stands; for the C library it means UTC.
[[nodiscard]] std::string systemTimeZoneIdentifier();

}  // namespace tessary
