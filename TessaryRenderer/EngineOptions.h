#pragma once

namespace tessary::EngineOptions {

/// Gives the script engine this process's options and nobody else's. The engine takes its options from environment
/// variables at the first call into it, so this has to come before; and what it does not understand it prints.
///
/// Of the inherited environment only what tells of language and time zone stays (`TZ`, `LANG`, `LANGUAGE`, `LC_...`),
/// since a script may see the local time and the user's locale. All else goes: options of the engine, its allocator and
/// the libraries below it, and whatever secrets the host's environment holds.
///
/// Call once, from the only thread there is.
void replaceEnvironment();

}  // namespace tessary::EngineOptions
