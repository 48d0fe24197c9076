#pragma once

#include "Diagnostics/String.h"
#include "Utilities/Tools/SmartPointer.h"
#include "core/component/Component.h"

#include <cstdint>

namespace GUI {

/// The system's name for a window, passed down the element tree. A copy stays valid as long as its
/// window does; nobody tells it when the window is destroyed.
class PlatformIndependentWindowID : public Utilities::Component {
public:
    PlatformIndependentWindowID() = default;
    PlatformIndependentWindowID(PlatformIndependentWindowID const&) = default;
    virtual PlatformIndependentWindowID& operator=(PlatformIndependentWindowID const& other) {
        if (this != &other) id_ = other.id_;
        return *this;
    }
    virtual Diagnostics::String GetValueString() = 0;
    virtual void SetID(std::uint32_t id) { id_ = id; }
    virtual std::uint32_t GetID() const { return id_; }
    /// Takes the id from another identity.
    virtual void Set(Utilities::SmartPointer<PlatformIndependentWindowID> other) { id_ = other->GetID(); }

private:
    std::uint32_t id_ = 0;
};

} // namespace GUI
