#pragma once

namespace tessary::Landlock {

/// Takes from the calling thread, and from the threads that it starts, every right over files, network ports and
/// outside sockets and processes that this kernel's Landlock knows of. Descriptors that are open stay usable. False
/// where the kernel has no Landlock. `PR_SET_NO_NEW_PRIVS` must be set.
bool forbidFiles();

}  // namespace tessary::Landlock
