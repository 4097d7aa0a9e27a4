#pragma once

namespace tessary::SystemCallFilter {

/// Lets pass, in every thread of the process, only the system calls that a running script engine makes: memory, threads
/// of this process, waiting, time, random numbers, signals, and reading and writing what is open. All others report
/// EPERM, except that `clone3` reports that it does not exist, upon which the C library takes `clone`, whose arguments
/// a filter can see.
///
/// False where the kernel has no filters, or for a processor that this file has no numbers for. `PR_SET_NO_NEW_PRIVS`
/// must be set.
bool install();

}  // namespace tessary::SystemCallFilter
