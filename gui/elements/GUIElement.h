#pragma once

#include "Diagnostics/String.h"
#include "Utilities/Tools/List.h"
#include "Utilities/Tools/SmartPointer.h"
#include "core/component/Component.h"
#include "gui/elements/Description.h"
#include "gui/elements/DialogDataSource.h"
#include "gui/elements/PlatformIndependentDeviceContext.h"
#include "gui/elements/PlatformIndependentWindowID.h"

#include <cstdint>

namespace GUI {

/// Node of the element tree: a name, a size range, a position and size in pixels of the parent window,
/// and children. It is created from a node of a description and gets its data from a data source.
///
/// Attributes (see `CommonAttributes`): "ElementName" (empty), "Register" (Yes), "MinimalWidth" (0),
/// "MaximalWidth" (10000), "MinimalHeight" (0), "MaximalHeight" (10000), "HelpFile", "HelpTopic".
///
/// A parent owns its children; the parent window's identity, the parent element and the data source
/// must outlive the element. All operations belong to the GUI thread.
class alignas(64) GUIElement : public Utilities::Component {
public:
    using Children = Utilities::List<Utilities::SmartPointer<GUIElement>>;

    GUIElement() = default;
    GUIElement(GUIElement const&) = delete;
    GUIElement& operator=(GUIElement const&) = delete;
    ~GUIElement() override;

    /// Reads the common attributes. Each class calls its base's first, reads its own keys and then
    /// registers its callbacks. A mandatory attribute that is missing throws `OutOfRangeException`.
    virtual void Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                            DialogDataSource* dataSource);
    virtual Diagnostics::String GetValueString() { return "GUIElement"; }
    virtual void SetPosition(unsigned long x, unsigned long y);
    virtual void SetSize(unsigned long width, unsigned long height);
    virtual void GetSize(unsigned long& width, unsigned long& height) const;
    virtual void GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                    unsigned long& minimalHeight, unsigned long& maximalHeight);
    /// Asks upward for a new layout after a change of content.
    virtual void RecalculateSize();
    virtual long OnUpdate(Utilities::Anything const& command);
    virtual void Enable(bool enabled);
    virtual Utilities::String GetElementName() { return name_; }
    /// The name of the part under a point, and the part last named; empty for elements without parts.
    virtual Utilities::String GetRegion(unsigned long x, unsigned long y);
    virtual Utilities::String GetCurrentRegion();
    /// After a window has painted, decorators draw over it; containers pass it on to their children.
    virtual void OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                         GUIElement const& element) const;
    /// Reads the optional common attributes of a node.
    virtual void SetAttributes(DescriptionTree const& description);
    /// Translations have changed. Containers pass it on; an element that keeps translated text translates
    /// its key again. The windows are laid out anew and repainted afterwards.
    virtual void OnLanguageChanged();

    bool PrepareForUnload() override { return true; }

    /// In creation order.
    Children const& GetChildrenList() const { return children_; }
    /// The registered element of that name within this subtree. An unknown name throws
    /// `OutOfRangeException`.
    GUIElement& FindElement(Utilities::String const& name) const;
    DialogDataSource* GetDataSource() const { return dataSource_; }
    PlatformIndependentWindowID const* GetParentWindowID() const { return parentWindow_; }
    /// The element's own window; null for an element without one.
    Utilities::SmartPointer<PlatformIndependentWindowID> GetWindowID() const { return window_; }
    GUIElement* GetParentElement() const { return parentElement_; }
    void GetPosition(unsigned long& x, unsigned long& y) const;
    /// True if nothing would change.
    bool IfSizeEqual(unsigned long width, unsigned long height) const {
        return width_ == width && height_ == height;
    }
    bool IfPositionEqual(unsigned long x, unsigned long y) const { return x_ == x && y_ == y; }
    /// The help for the deepest element under a point that has some.
    bool GetHelpInfo(Utilities::String& file, unsigned long& topic, unsigned long x, unsigned long y) const;

protected:
    /// Creates the elements of the node's children in order. The walk is on the live list: an element
    /// may insert further nodes behind its own while it is being initialised.
    void CreateChildren(PlatformIndependentWindowID const& window, DescriptionTree const& description,
                        DialogDataSource* dataSource);
    void ReleaseChildren();
    void SetWindowID(Utilities::SmartPointer<PlatformIndependentWindowID> const& window) { window_ = window; }
    /// Replaces the size range that the attributes gave.
    void SetSizeInformation(unsigned long minimalWidth, unsigned long maximalWidth,
                            unsigned long minimalHeight, unsigned long maximalHeight);
    void PassOnPaintWindowDecorators(PlatformIndependentDeviceContext& context) const;
    /// The first child, null if there is none.
    GUIElement* GetFirstChild() const;

    /// A number that grows with every known change of some element's size range or children. What a
    /// container worked out from size ranges stands only while the number does.
    static std::uint64_t GetLayoutRevision() { return layoutRevision; }
    static void AdvanceLayoutRevision() { ++layoutRevision; }
    /// Grows whenever this element gets or loses children.
    std::uint32_t GetChildrenRevision() const { return childrenRevision_; }

private:
    GUIElement* FindRegistered(Utilities::String const& name) const;
    void OnChildrenChanged();

    static std::uint64_t layoutRevision;

    // What a layout reads and writes stands together in front, and the alignment keeps it in one cache
    // line. Sizes are 32 bits wide by contract; only the signatures widen them.
    std::uint32_t minimalWidth_ = 0;
    std::uint32_t maximalWidth_ = 10000;
    std::uint32_t minimalHeight_ = 0;
    std::uint32_t maximalHeight_ = 10000;
    std::uint32_t x_ = 0;
    std::uint32_t y_ = 0;
    std::uint32_t width_ = 0;
    std::uint32_t height_ = 0;
    std::uint32_t childrenRevision_ = 0;
    bool registered_ = true;
    Utilities::String name_;
    Utilities::String helpFile_;
    unsigned long helpTopic_ = 0;
    DialogDataSource* dataSource_ = nullptr;
    PlatformIndependentWindowID const* parentWindow_ = nullptr;
    Utilities::SmartPointer<PlatformIndependentWindowID> window_;
    GUIElement* parentElement_ = nullptr;
    Children children_;
};

} // namespace GUI
