#include "gui/elements/CallScope.h"

#include "gui/elements/GUIElement.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace GUI {

namespace {

CallScope* innermost = nullptr;
EventScope const* innermostEvent = nullptr;
bool destroying = false;

struct Link {
    GUIElement const* child;
    GUIElement const* parent;
};

std::vector<std::unique_ptr<GUIElement>>& Waiting() {
    // Never destroyed: at the end of the process there is no window any more that they could leave.
    static auto& waiting = *std::make_unique<std::vector<std::unique_ptr<GUIElement>>>().release();
    return waiting;
}

/// Parents of children that left them during a call; nearly always empty.
std::vector<Link>& FormerParents() {
    static std::vector<Link> links;
    return links;
}

} // namespace

GUIElement const* ReleasedElements::ParentOf(GUIElement const& element) {
    // Also of a released one: what it is in must outlive the call too.
    if (element.parentElement_) return element.parentElement_;
    for (Link const& link : FormerParents())
        if (link.child == &element) return link.parent;
    return nullptr;
}

CallScope::CallScope(GUIElement const& element)
    : element_(&element), outer_(std::exchange(innermost, this)) {}

CallScope::~CallScope() { innermost = outer_; }

bool CallScope::IsAttached() const { return element_ && element_->IsAttached(); }

EventScope::EventScope(int loopLevel) : loopLevel_(loopLevel), outer_(std::exchange(innermostEvent, this)) {}

EventScope::~EventScope() {
    innermostEvent = outer_;
    if (!outer_ || loopLevel_ > outer_->loopLevel_) ReleasedElements::DestroyIdle();
}

bool EventScope::IsActive() { return innermostEvent != nullptr; }

bool ReleasedElements::IsInCall(GUIElement const& element) {
    for (CallScope const* scope = innermost; scope; scope = scope->outer_)
        for (GUIElement const* called = scope->element_; called; called = ParentOf(*called))
            if (called == &element) return true;
    return false;
}

void ReleasedElements::Dispose(GUIElement* element) {
    std::unique_ptr<GUIElement> owned(element);
    element->Detach();
    // Outside of events the caller's own frames are unknown only below a scope. While elements are being
    // destroyed nothing that the event has called can be left in them.
    bool const waits = destroying ? IsInCall(*element) : innermostEvent || innermost;
    if (waits) Waiting().push_back(std::move(owned));
}

void ReleasedElements::DestroyIdle() {
    if (destroying || Waiting().empty()) return;
    destroying = true;
    // A destructor may release further elements, which then are destroyed at once or wait.
    std::vector<std::unique_ptr<GUIElement>> candidates = std::exchange(Waiting(), {});
    std::vector<std::unique_ptr<GUIElement>> kept;
    for (auto& element : candidates)
        if (IsInCall(*element))
            kept.push_back(std::move(element));
        else
            element.reset();
    auto& waiting = Waiting();
    waiting.insert(waiting.begin(), std::make_move_iterator(kept.begin()),
                   std::make_move_iterator(kept.end()));
    destroying = false;
}

unsigned long ReleasedElements::GetCount() { return Waiting().size(); }

void ReleasedElements::KeepParentOf(GUIElement const& child, GUIElement const& parent) {
    if (innermost && IsInCall(child)) FormerParents().push_back({&child, &parent});
}

void ReleasedElements::Forget(GUIElement const& element) {
    for (CallScope* scope = innermost; scope; scope = scope->outer_)
        if (scope->element_ == &element) scope->element_ = nullptr;
    std::erase_if(FormerParents(),
                  [&element](Link const& link) { return link.child == &element || link.parent == &element; });
}

} // namespace GUI
