#pragma once

#include "core/component/ComponentCreatorBase.h"
#include "gui/elements/Accessible.h"
#include "gui/elements/AdvancedControlImpl.h"
#include "gui/elements/GUIElement.h"
#include "gui/elements/KeyState.h"
#include "gui/elements/SelectableObject.h"
#include "gui/elements/SupportsPropertyInspector.h"

#include <utility>

namespace GUI {

/// An element with its own window, which it paints whole: background, then frame, then the background
/// picture, then what a derived class draws.
///
/// Attributes beyond `GUIElement`'s: "ElementName" (mandatory in a description that is read from a file; a
/// pane that another element makes needs none), "BackgroundColor" (the system's
/// dialog colour), "BackgroundBitmap" (none; name of an image of the image service, drawn at its own size
/// from the top left corner), "Frame" (No), "Selectable" (No; whether Tab reaches it). Of the data source
/// at each update: "BackgroundBitmap", an empty string for none; any other answer leaves it. In the component
/// "Pane" and in a `CustomControl` the description's children become elements inside the pane, the first of
/// which fills it; classes that draw something of their own leave them alone.
///
/// An update repaints the pane unless "|NoRepaint" is in the command.
///
/// A pane holds the selection of a topic while the component "SelectionService" says so; the pane that
/// held it before is told and repaints. A pane that is destroyed gives its selections up.
class Pane : public GUIElement, public SupportsPropertyInspector, public SelectableObject {
public:
    static AttributesOf<Pane> const attributeTable;
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
    /// Something is dragged over the pane. The data source's drop handler for the pane's name decides, or
    /// without one the `DialogHandler` as a whole; a pane inside a `CustomControl` leaves it to that. A drag
    /// that is accepted shows in the pane.
    virtual DropEffect OnDragOver(DropDataObject const& data, KeyState keyState, long x, long y);
    virtual void OnDragLeave();
    /// True if what was dropped was taken.
    virtual bool OnDrop(DropDataObject const& data, DropEffect effect, long x, long y);

    /// What assistive technology is told. A group that Tab reaches is shown to it as a button. The name is
    /// what the data source gives under "AccessibleName", else the first line of the tool tip in the pane's
    /// middle; the description is the rest of the tool tip.
    virtual Accessible GetAccessible();

    /// Assistive technology is told that what `GetAccessible` gives is another now.
    void TellAccessibleChange();

    /// What the data source gives under "PropertyContent".
    Utilities::Anything GetProperties() override;

    /// Paints before it returns; see `AdvancedControlImpl::Repaint`.
    void Repaint();
    void SetMouseCapture(bool capture);
    /// Shows or hides the pane's window, with all that is in it.
    void Show(bool visible);
    /// Gives the pane the keyboard focus, which selects it for the property inspector.
    void SetFocus();
    /// Calls `OnGetDeviceContext` with a surface to measure text on.
    void UpdateDeviceContext();
    /// Whether a drag is over the pane, and where: (-1, -1) for none.
    bool DrawDragMouseOver() const { return dragMouseOverPosition_ != noDrag; }
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
    /// Whether an update message carries the suffix "|NoRepaint".
    static bool HasNoRepaint(Utilities::Anything const& command);
    /// The command in an update message, without that suffix; empty for one that is no text.
    static Utilities::String GetCommand(Utilities::Anything const& command);
    /// Said by a class that paints less than the whole pane.
    void SetLeavesPixels(bool leaves) { leavesPixels_ = leaves; }
    /// Whether the description's children become elements, and what does it with which data source.
    virtual void CreateDescribedChildren(DescriptionTree const& /*description*/) {}
    void OnDetach() override;
    /// An update without the repaint at its end, for a class that decides itself whether it repaints.
    long ReadUpdate(Utilities::Anything const& command);

private:
    static constexpr std::pair<long, long> noDrag{-1, -1};

    /// In the pane that it is in.
    std::pair<long, long> GetPlace() const;
    void LayOutFirstChild();
    void SetDragMouseOver(std::pair<long, long> const& position);

    Utilities::SmartPointer<AdvancedControlImpl> control_;
    DescriptionTree childDescription_;
    RGBVector backgroundColor_;
    Utilities::String backgroundBitmap_;
    bool frame_ = false;
    bool leavesPixels_ = false;
    bool selected_ = false;
    std::pair<long, long> dragMouseOverPosition_ = noDrag;
    /// Topics whose selection may be this pane's.
    Utilities::List<Utilities::String> topics_;
};

} // namespace GUI
