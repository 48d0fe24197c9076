#pragma once

#include "Diagnostics/Sink.h"
#include "core/values/Callback.h"
#include "gui/elements/CallScope.h"
#include "gui/elements/DialogDataSource.h"

#include <type_traits>

namespace GUI {

/// A callback on a member function of the object that holds this. An element lives on while it runs. Once the
/// object has released it, what is left of it in some table does nothing and gives 0, and the table's other
/// entries are left alone. The object takes it out of the tables that it knows, since they may outlive the
/// plug-in. GUI thread only.
template <class T> class OwnedCallback {
public:
    using Member = long (T::*)(Utilities::Anything const&);

    OwnedCallback(T* owner, Member member) : owner_(owner), member_(member) {}
    OwnedCallback(OwnedCallback const&) = delete;
    OwnedCallback& operator=(OwnedCallback const&) = delete;
    ~OwnedCallback() { Release(); }

    Utilities::Callback Get() {
        if (link_.IsNull()) link_ = Utilities::MakeSmart<Link>(owner_, member_);
        return Utilities::Callback(link_);
    }
    /// For a destructor that does more than let go.
    void Release() {
        if (!link_.IsNull()) link_->Cut();
    }
    /// The same, and takes the callback out of the data source if it is still there.
    void Release(DialogDataSource* source, Utilities::String const& element, char const* event) {
        try {
            if (source && !link_.IsNull() && source->GetCallback(element, event) == Get())
                source->SetCallback(element, event, {});
        } catch (...) {
            Diagnostics::DropException("OwnedCallback: release");
        }
        Release();
    }

private:
    class Link : public Utilities::CallbackImplementation {
    public:
        Link(T* owner, Member member) : owner_(owner), member_(member) {}

        Diagnostics::String GetValueString() override { return "OwnedCallback"; }
        long Execute(Utilities::Anything const& argument) override {
            if (!owner_) return 0;
            if constexpr (std::is_base_of_v<GUIElement, T>) {
                CallScope const call(*owner_);
                return (owner_->*member_)(argument);
            } else {
                return (owner_->*member_)(argument);
            }
        }
        bool IsValid() override { return owner_ != nullptr; }
        void Cut() { owner_ = nullptr; }

    private:
        T* owner_;
        Member member_;
    };

    T* owner_;
    Member member_;
    Utilities::SmartPointer<Link> link_;
};

} // namespace GUI
