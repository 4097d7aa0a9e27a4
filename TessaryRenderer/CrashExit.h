#pragma once

/// The way out when the engine gives up. Out of address space, or at an assertion of its own, the engine does not
/// throw: it kills its process with a signal. The caller is promised one of two shapes, so that such an end is turned
/// into the failure exit with the general text.
namespace tessary::CrashExit {

/// Catches the signals of a crash, before the engine is first called: it installs its own for some of them and hands
/// on what is not for it.
void install();

/// Takes standard output for the calling thread, whose object it is from here on: no crash adds to it, and one of
/// another thread no longer ends the process. Does not return if a crash has taken it before, which ends the process.
/// Call before the first byte is written, of a result or of a failure.
void claimOutput();

}  // namespace tessary::CrashExit
