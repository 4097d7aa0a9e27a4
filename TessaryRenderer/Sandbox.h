#pragma once

namespace tessary::Sandbox {

/// What of the sandbox the kernel had to give.
struct Outcome {
  /// No file can be opened, by any path (Landlock).
  bool hasNoFiles = false;
  /// Only the system calls of `SystemCallFilter` pass, for every thread (seccomp).
  bool hasFilter = false;

  bool operator==(const Outcome&) const = default;
};

/// Gives up for good what a running script context does not need: opening files, sockets, new programs and processes,
/// tracing, privileges. A refused call reports EPERM; nothing is killed. Where the kernel lacks one of the two means,
/// or forbids it, the process goes on with what there is.
///
/// Call once the script context exists and has loaded its lazy parts, and before any script of the asset runs.
Outcome enter();

}  // namespace tessary::Sandbox
