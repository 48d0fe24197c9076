#pragma once

namespace Utilities {

/// Root of all components.
class ComponentBase {
public:
    virtual ~ComponentBase() = default;
};

/// What can be asked for by name. Owned jointly by `SmartPointer`.
class Component : public ComponentBase {
public:
    Component() = default;
    Component(Component const&) = default;
    Component& operator=(Component const&) = default;
    ~Component() override = default;

    /// Self-check; may stay empty.
    virtual void Invariant() const {}
    /// Releases what is held beyond the plug-in's life and says whether that succeeded.
    virtual bool PrepareForUnload() { return false; }
    virtual void Destroy() { delete this; }
};

} // namespace Utilities
