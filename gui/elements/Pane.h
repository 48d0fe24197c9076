#pragma once

#include "core/component/ComponentCreatorBase.h"
#include "gui/elements/AdvancedControlImpl.h"
#include "gui/elements/GUIElement.h"
#include "gui/elements/KeyState.h"
#include "gui/elements/OwnedCallback.h"
#include "gui/elements/SelectableObject.h"
#include "gui/elements/SupportsPropertyInspector.h"

#include <utility>

namespace GUI {

/// An element with its own window, which it paints whole: background, then frame, then the background
/// picture, then what a derived class draws.
///
/// Attributes beyond `GUIElement`'s: "ElementName" (mandatory here), "BackgroundColor" (the system's
/// dialog colour), "BackgroundBitmap" (none; name of an image of the image service, drawn at its own size
/// from the top left corner), "Frame" (No), "Selectable" (No; whether Tab reaches it). Of the data source
/// at each update: "BackgroundBitmap", an empty string for none; any other answer leaves it. Description
/// children become elements inside the pane, the first of which fills it.
///
/// A pane holds the selection of a topic while the component "SelectionService" says so; the pane that
/// held it before is told and repaints. A pane that dies gives its selections up.
class Pane : public GUIElement, public SupportsPropertyInspector, public SelectableObject {
public:
    static constexpr Utilities::ComponentDescription componentDescription{"Pane", "$Revision: 1.1 $", "GUI"};
    static Utilities::ComponentCreatorBase::Descriptor GetDescriptor() {
        return componentDescription.GetDescriptor();
    }

    Pane() = default;
    ~Pane() override;

    void Invariant() const override {}
    Diagnostics::String GetValueString() override { return "Pane"; }
    void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                    DialogDataSource* dataSource) override;
    void SetPosition(unsigned long x, unsigned long y) override;
    void SetSize(unsigned long width, unsigned long height) override;
    long OnUpdate(Utilities::Anything const& command) override;
    void OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                 GUIElement const& element) const override;
    void OnLanguageChanged() override;

    /// Copies how the pane looks: background colour and picture, frame.
    virtual Pane const& operator=(Pane const& other);
    /// Replaces the pane's children by those of a description file, or of a description in memory with
    /// the data source that they are to see. The tree is copied.
    virtual void SetGUIDescriptionTree(Utilities::String const& fileName);
    virtual void SetGUIDescriptionTree(DescriptionTree const& description, DialogDataSource* dataSource);
    virtual void SetBackgroundColor(RGBVector const& color);
    virtual void SetFrame(bool frame);
    virtual Utilities::String GetToolTipText(unsigned short x, unsigned short y);
    virtual long Select(Utilities::Anything const& argument);
    /// "Focus" tells of the keyboard focus, any other name is a topic of the selection service.
    virtual void OnSelectionChanged(Utilities::String const& elementName, bool selected);
    virtual void OnPaint(PlatformIndependentDeviceContext& context);
    /// The mouse operations return true if the pane consumed the event.
    virtual bool OnLeftButtonDown(KeyState keyState, long x, long y);
    virtual bool OnLeftButtonUp(long x, long y);
    virtual bool OnMouseMove(long x, long y);
    virtual bool OnMouseLeave();
    virtual void OnGetDeviceContext(PlatformIndependentDeviceContext& context);
    virtual bool IsDragable(std::pair<long, long> const& point);

    /// What the data source gives under "PropertyContent".
    Utilities::Anything GetProperties() override;

    /// Paints before it returns; see `AdvancedControlImpl::Repaint`.
    void Repaint();
    void SetMouseCapture(bool capture);
    /// Whether a drag is over the pane, and where.
    bool DrawDragMouseOver() const { return dragMouseOver_; }
    std::pair<long, long> GetDragMouseOverPosition() const { return dragMouseOverPosition_; }

    RGBVector const& GetBackgroundColor() const { return backgroundColor_; }
    bool GetFrame() const { return frame_; }
    /// Name of the image under the pane's drawing; empty for none.
    Utilities::String const& GetBackgroundBitmap() const { return backgroundBitmap_; }
    void SetBackgroundBitmap(Utilities::String const& imageName) { backgroundBitmap_ = imageName; }
    /// Whether there may be pixels that it doesn't paint, beside its picture or around its shape.
    bool LeavesPixels() const { return leavesPixels_ || backgroundBitmap_.Length() != 0; }
    /// Whether the pane holds the selection that the property inspector follows.
    bool IsSelected() const { return selected_; }

protected:
    /// Whether an update message carries the suffix "|NoRepaint" behind a command.
    static bool HasNoRepaint(Utilities::String const& message);
    /// The message without that suffix.
    static Utilities::String GetCommand(Utilities::String const& message);
    /// Said by a class that paints less than the whole pane.
    void SetLeavesPixels(bool leaves) { leavesPixels_ = leaves; }
    /// Registers `OnUpdate` with the data source under the pane's own name, for as long as the pane
    /// lives.
    void RegisterOnUpdate();
    /// The data source's value under the pane's own name; invalid without a data source.
    Utilities::Anything GetValue(Utilities::String const& key);

private:
    void LayOutFirstChild();

    OwnedCallback<Pane> onUpdate_{this, &Pane::OnUpdate};
    Utilities::SmartPointer<AdvancedControlImpl> control_;
    DescriptionTree childDescription_;
    RGBVector backgroundColor_;
    Utilities::String backgroundBitmap_;
    bool frame_ = false;
    bool leavesPixels_ = false;
    bool selected_ = false;
    bool dragMouseOver_ = false;
    std::pair<long, long> dragMouseOverPosition_;
    /// Topics whose selection may be this pane's.
    Utilities::List<Utilities::String> topics_;
};

} // namespace GUI
