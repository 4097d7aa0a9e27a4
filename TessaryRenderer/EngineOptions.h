#pragma once

namespace tessary::EngineOptions {

/// Gives the script engine this process's options and nobody else's. The engine takes its options from environment
/// variables at the first call into it, so this has to come before; and what it does not understand it prints.
///
/// Of the inherited environment only the time zone stays (`TZ`), which a script may see. All else goes: options of the
/// engine, of its allocator and of the libraries below it, and whatever secrets the host's environment holds. A locale
/// would have no effect: the engine's default is that of a program which never asks for the user's.
///
/// Call once, from the only thread there is.
void replaceEnvironment();

}  // namespace tessary::EngineOptions
