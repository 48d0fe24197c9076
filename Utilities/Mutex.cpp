#include "Utilities/Mutex.h"

#include "Utilities/NamingService.h"

namespace Utilities {

Mutex::Mutex(String const& name)
    : implementation_(ResolveComponent<MutexImplementation>("MutexImplementation")) {
    implementation_->Create(name);
}

bool Mutex::Lock(long timeout) { return implementation_->Lock(timeout); }
void Mutex::Unlock() { implementation_->Unlock(); }

} // namespace Utilities
