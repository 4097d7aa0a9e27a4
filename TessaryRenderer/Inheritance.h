#pragma once

/// What a parent process leaves to its child, and what must not reach a run: blocked and pending signals, closed
/// standard descriptors and surplus open ones, interval timers, low resource limits.
namespace tessary::Inheritance {

/// Puts the process into the one state that the run relies on. Afterwards:
///
/// - no signal is blocked, so that SIGALRM and the engine's own signals arrive; one that was already pending when the
///   process began is dropped, since it does not tell of this run;
/// - writing to a closed pipe or above a file size limit is an error of the write and not a signal;
/// - descriptors 0, 1 and 2 are taken: where standard input or output came closed, reading or writing them fails, and
///   no file that is opened later can end up in their place. Standard error leads nowhere;
/// - no other descriptor is open;
/// - no interval timer but the alarm runs, and soft resource limits stand where the hard ones let them,
///   and every thread has a stack of the usual size;
/// - no core file will be written, and no process of the same user can look inside.
///
/// Call once, first, before anything has opened a descriptor; the alarm may already run.
void shed();

}  // namespace tessary::Inheritance
