#include "tests/support/FakeWindowHost.h"

#include "Utilities/NamingService.h"
#include "tests/support/RecordingDeviceContext.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace TestSupport {

using GUI::AdvancedControlImpl;
using GUI::DescriptionTree;
using GUI::GUIElement;
using GUI::Pane;
using GUI::PlatformIndependentDeviceContext;
using GUI::PlatformIndependentWindowID;
using Utilities::SmartPointer;

namespace {

class FakeWindowID : public PlatformIndependentWindowID, public GUI::PartlyPaintedWindow {
public:
    explicit FakeWindowID(FakeWindowHost::State* host = nullptr) : host_(host) {}
    void RepaintPart(GUI::PaneBox const& box) override;
    Diagnostics::String GetValueString() override { return "FakeWindowID"; }
    bool PrepareForUnload() override { return true; }

private:
    FakeWindowHost::State* host_;
};

class FakeControl;

} // namespace

struct FakeWindowHost::State {
    FakeWindowID window;
    std::uint32_t lastID = 0;
    std::vector<FakeControl*> controls;
    std::vector<std::unique_ptr<Utilities::ComponentCreatorBase>> creators;
    std::function<void(Pane&, GUI::PaneBox const&)> paintPart;

    FakeControl& Find(Pane const& pane) const;
};

namespace {

class FakeControl : public AdvancedControlImpl {
public:
    explicit FakeControl(FakeWindowHost::State& host) : host_(host) { host_.controls.push_back(this); }
    ~FakeControl() override { std::erase(host_.controls, this); }

    bool PrepareForUnload() override { return true; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const&) override {
        parent_ = parent.GetID();
        id_ = ++host_.lastID;
        GetPane()->GetWindowID()->SetID(id_);
    }
    void SetPane(Pane* pane) override {
        AdvancedControlImpl::SetPane(pane);
        if (pane) pane->SetBackgroundColor(GUI::RGBVector(240, 240, 240));
    }
    void SetSize(long, long) override {}
    void SetPosition(long, long) override {}
    void SetFocus() override {}
    void SetID(unsigned short) override {}
    void UpdateDeviceContext() override {
        RecordingDeviceContext context;
        OnGetDeviceContext(context);
    }
    void SetMouseCapture(bool) override {}
    void Show(bool) override {}
    void Repaint() override {
        if (IsInsidePaint()) {
            dirty_ = true;
            return;
        }
        RecordingDeviceContext context;
        PaintAll(context);
    }

    void PaintAll(PlatformIndependentDeviceContext& context) {
        PaintOnce(context);
        // One more for each window that asked while it was painted; a window that asks at every paint
        // isn't painted for ever.
        for (FakeControl* const control : std::vector<FakeControl*>(host_.controls))
            if (std::exchange(control->dirty_, false)) control->PaintOnce(context);
    }

    void RepaintPart(GUI::PaneBox const& box) {
        if (host_.paintPart && GetPane())
            host_.paintPart(*GetPane(), box);
        else
            Repaint();
    }
    std::uint32_t GetID() const { return id_; }
    Pane const* GetOwner() const { return GetPane(); }
    int paints = 0;

private:
    void PaintOnce(PlatformIndependentDeviceContext& context) {
        painting_ = true;
        dirty_ = false;
        ++paints;
        OnPaint(context);
        for (FakeControl* const control : std::vector<FakeControl*>(host_.controls))
            if (control->parent_ == id_) control->PaintOnce(context);
        painting_ = false;
    }
    bool IsInsidePaint() const {
        if (painting_) return true;
        return std::any_of(host_.controls.begin(), host_.controls.end(), [this](FakeControl const* control) {
            return control->id_ == parent_ && control->IsInsidePaint();
        });
    }

    FakeWindowHost::State& host_;
    std::uint32_t parent_ = 0;
    std::uint32_t id_ = 0;
    bool painting_ = false;
    bool dirty_ = false;
};

template <class Make> class FakeCreator : public Utilities::ComponentCreatorBase {
public:
    FakeCreator(char const* name, Make make) : name_(name), make_(make) {
        Utilities::NamingService::Instance()->RegisterComponent(this);
    }
    ~FakeCreator() override { Utilities::NamingService::Instance()->UnRegisterComponent(this); }
    Descriptor GetDescriptor() override {
        return Utilities::ComponentDescription{name_, "$Revision: 0 $", "Test"}.GetDescriptor();
    }
    void Create(SmartPointer<Utilities::Component>& result) override { result = make_(); }
    bool PrepareForUnload() override { return true; }

private:
    char const* name_;
    Make make_;
};

} // namespace

void FakeWindowID::RepaintPart(GUI::PaneBox const& box) {
    if (!host_) return;
    for (FakeControl* const control : std::vector<FakeControl*>(host_->controls))
        if (control->GetID() == GetID()) control->RepaintPart(box);
}

void FakeWindowHost::SetPartPainter(std::function<void(Pane&, GUI::PaneBox const&)> paint) {
    state_->paintPart = std::move(paint);
}

FakeControl& FakeWindowHost::State::Find(Pane const& pane) const {
    for (FakeControl* const control : controls)
        if (control->GetOwner() == &pane) return *control;
    throw std::logic_error("the pane has no window");
}

SmartPointer<DescriptionTree> Node(std::initializer_list<std::pair<char const*, char const*>> attributes,
                                   std::initializer_list<SmartPointer<DescriptionTree>> children) {
    auto node = Utilities::MakeSmart<DescriptionTree>();
    for (auto const& [key, value] : attributes) (*node)[key] = value;
    for (auto const& child : children) node->AddChild(child);
    return node;
}

FakeWindowHost::FakeWindowHost() : state_(std::make_unique<State>()) {
    state_->window.SetID(++state_->lastID);
    auto const add = [this](char const* name, auto make) {
        state_->creators.push_back(std::make_unique<FakeCreator<decltype(make)>>(name, make));
    };
    add("AdvancedControlImpl", [state = state_.get()] {
        return SmartPointer<Utilities::Component>(Utilities::MakeSmart<FakeControl>(*state));
    });
    add("PlatformIndependentWindowID", [state = state_.get()] {
        return SmartPointer<Utilities::Component>(Utilities::MakeSmart<FakeWindowID>(state));
    });
}

FakeWindowHost::~FakeWindowHost() { GUI::ReleasedElements::DestroyIdle(); }

PlatformIndependentWindowID const& FakeWindowHost::GetWindow() const { return state_->window; }

SmartPointer<GUIElement> FakeWindowHost::Create(SmartPointer<DescriptionTree> const& node,
                                                GUI::DialogDataSource* dataSource) {
    auto element = Utilities::ResolveComponent<GUIElement>((*node)["GUIElementType"].GetString());
    element->Initialize(state_->window, *node, dataSource);
    return element;
}

void FakeWindowHost::Paint(Pane const& pane, PlatformIndependentDeviceContext& context) {
    GUI::EventScope const event;
    state_->Find(pane).PaintAll(context);
}
bool FakeWindowHost::Click(Pane const& pane, long x, long y, bool controlKey) {
    GUI::EventScope const event;
    FakeControl& control = state_->Find(pane);
    control.OnSelectionChanged("PropertyInspector", true);
    return control.OnLeftButtonDown(controlKey, x, y);
}
bool FakeWindowHost::Move(Pane const& pane, long x, long y) {
    GUI::EventScope const event;
    return state_->Find(pane).OnMouseMove(x, y);
}
Utilities::String FakeWindowHost::GetToolTip(Pane const& pane, unsigned short x, unsigned short y) {
    GUI::EventScope const event;
    return state_->Find(pane).GetToolTipText(x, y);
}
int FakeWindowHost::GetPaintCount(Pane const& pane) const { return state_->Find(pane).paints; }
int FakeWindowHost::GetWindowCount() const { return static_cast<int>(state_->controls.size()); }

} // namespace TestSupport
