#pragma once

/// The way out when the engine gives up. Out of address space, or at an assertion of its own, the engine does not
/// throw: it kills its process with a signal. The caller is promised one of two shapes, so that such an end is turned
/// into the failure exit with the general text.
namespace tessary::CrashExit {

/// Catches the signals of a crash, before the engine is first called: it installs its own for some of them and hands
/// on what is not for it.
void install();

/// Says that bytes of a result may already stand on standard output: from here on a crash adds nothing to them.
void outputBegins();

}  // namespace tessary::CrashExit
