#pragma once

#include <chrono>
#include <pthread.h>

namespace Utilities {

/// Ends a thread of this process by force, at a place where the process stays sound: outside the memory
/// allocator, the C library and the loader, or waiting in the kernel. It uses the signal
/// `SIGRTMAX - 4`, whose handler it installs on the first call, and serves one caller at a time.
///
/// True if the thread has ended and was joined, by force or by itself; false if it didn't come to such
/// a place within `patience`, and then it runs on.
bool KillThread(pthread_t thread, std::chrono::milliseconds patience);

} // namespace Utilities
