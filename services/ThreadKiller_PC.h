#pragma once

#include <atomic>
#include <chrono>
#include <pthread.h>

namespace Utilities {

/// Ends a thread of this process by force, at a place where the process stays sound: outside the memory
/// allocator, the C library and the loader, or waiting in the kernel. It uses the signal
/// `SIGRTMAX - 4`, whose handler it installs on the first call, and serves one caller at a time.
///
/// `ended` is what the thread sets as its last act, with that signal blocked. True if the thread has ended,
/// by force or by itself; false if it didn't come to such a place within `patience`, and then it runs on.
///
/// A thread that was ended by force is never joined: the C library would give its stack, with the dead
/// thread's own data still in it, to the next thread.
bool KillThread(pthread_t thread, std::atomic<bool> const& ended, std::chrono::milliseconds patience);

/// For the thread itself, before it sets its mark: it is past being ended.
void BlockKilling();

} // namespace Utilities
