#pragma once

#include "Diagnostics/String.h"
#include "core/base/String.h"
#include "core/component/Component.h"

namespace Utilities {

/// What is behind a `Mutex`; the component "MutexImplementation", one for each request.
class MutexImplementation : public Component {
public:
    virtual Diagnostics::String GetDescription() const { return {}; }
    /// Makes the mutex, not held at the start: an unnamed one if the name is empty, else the one that
    /// all processes of this user share by that name; if it begins with "Local\", only this process.
    virtual void Create(String const& name) = 0;
    /// Waits at most `timeout` milliseconds, for ever if it is negative; true if the mutex was gained.
    virtual bool Lock(long timeout) = 0;
    /// Releases it. A failure is a diagnostic text and nothing more.
    virtual void Unlock() = 0;
};

} // namespace Utilities
