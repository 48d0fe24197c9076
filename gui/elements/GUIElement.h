#pragma once

#include "Diagnostics/String.h"
#include "Utilities/Tools/List.h"
#include "Utilities/Tools/SmartPointer.h"
#include "core/component/Component.h"
#include "gui/elements/CallScope.h"
#include "gui/elements/DialogDataSource.h"
#include "gui/elements/OwnedCallback.h"
#include "gui/elements/description/Attributes.h"
#include "gui/elements/description/Description.h"
#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"
#include "gui/elements/drawing/PlatformIndependentWindowID.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace GUI {

/// Node of the element tree: a name, a size range, a position and size in pixels of the parent window,
/// and children. It is created from a node of a description and gets its data from a data source.
///
/// Attributes (see `CommonAttributes`): "ElementName" (empty), "Register" (Yes), "MinimalWidth" (0),
/// "MaximalWidth" (10000), "MinimalHeight" (0), "MaximalHeight" (10000), "HelpFile", "HelpTopic".
///
/// A parent owns its children. An element that its parent or its last holder releases is detached at once,
/// with all that is below it, and destroyed once no call is in it; see `CallScope`. The data source must
/// live until then or until the element is detached. All operations belong to the GUI thread.
class alignas(64) GUIElement : public Utilities::Component {
public:
    using Children = Utilities::List<Utilities::SmartPointer<GUIElement>>;

    static AttributesOf<GUIElement> const attributeTable;

    GUIElement();
    GUIElement(GUIElement const&) = delete;
    GUIElement& operator=(GUIElement const&) = delete;
    ~GUIElement() override;

    /// Reads the common attributes and keeps a copy of the parent window's identity. Each class calls its
    /// base's first, reads its own keys and then registers its callbacks. A mandatory attribute that is
    /// missing throws `OutOfRangeException`.
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
    /// its key again. The windows are laid out again and repainted afterwards.
    virtual void OnLanguageChanged();

    bool PrepareForUnload() override { return true; }
    /// Elements that exist, in all windows.
    static std::size_t GetLivingCount();
    /// Elements that couldn't be built since the program began. Boxes leave such a child out and go on; a
    /// host that takes that for an error compares the number before and after.
    static std::size_t GetFailedCount();
    /// What smart pointers call in place of a destructor.
    void Dispose() { ReleasedElements::Dispose(this); }
    /// False once the element has been released: it has no parent and no data source any more. Asked after
    /// each call out of the element.
    bool IsAttached() const { return !released_; }

    /// In creation order.
    Children const& GetChildrenList() const { return children_; }
    /// The registered element of that name within this subtree, the first one in the order of the
    /// description. An unknown name throws `OutOfRangeException`, as does an empty one: an element without a
    /// name can't be found.
    GUIElement& FindElement(Utilities::String const& name) const;
    /// Null once the element has been released.
    DialogDataSource* GetDataSource() const { return dataSource_; }
    PlatformIndependentWindowID const* GetParentWindowID() const { return parentWindow_.get(); }
    /// The element's own window; null for an element without one.
    Utilities::SmartPointer<PlatformIndependentWindowID> GetWindowID() const { return window_; }
    /// Null for a root, and once the element has been released.
    GUIElement* GetParentElement() const { return released_ ? nullptr : parentElement_; }
    void GetPosition(unsigned long& x, unsigned long& y) const;
    /// True if nothing would change.
    bool IfSizeEqual(unsigned long width, unsigned long height) const {
        return width_ == width && height_ == height;
    }
    bool IfPositionEqual(unsigned long x, unsigned long y) const { return x_ == x && y_ == y; }
    /// The help for the deepest element under a point that has some.
    bool GetHelpInfo(Utilities::String& file, unsigned long& topic, unsigned long x, unsigned long y) const;

    /// Takes in an element that was made in another way than from the description's children. From then on
    /// language, help, requests for a layout and `FindElement` reach it. It is detached when this element
    /// releases its children. To be called before the child's `Initialize`.
    void Adopt(Utilities::SmartPointer<GUIElement> const& child);
    /// Lets one child go, which is detached; nothing happens for an element that isn't a child.
    void ReleaseChild(GUIElement const& child);

protected:
    /// Creates the elements of the node's children in order. The walk is on the live list: an element
    /// may insert further nodes behind its own while it is being initialised.
    void CreateChildren(PlatformIndependentWindowID const& window, DescriptionTree const& description,
                        DialogDataSource* dataSource);
    void ReleaseChildren();
    /// The element has been released. A class releases what others know of it, and of its window of the
    /// platform, and then calls its base's. The data source is still there.
    virtual void OnDetach();
    /// Registers `OnUpdate` with the data source under the element's own name until it is released. An
    /// element without a name or a data source registers nothing.
    void RegisterOnUpdate();
    /// The data source's value under the element's own name; invalid without a data source. The data
    /// source may release this element.
    Utilities::Anything GetValue(Utilities::String const& key);
    /// Tells the data source a value under the element's own name.
    void TellValue(Utilities::String const& key, Utilities::Anything const& value);
    /// Executes the data source's callback of that name, and gives its result; 0 if there is none. The
    /// callback may release this element.
    long Fire(Utilities::String const& event, Utilities::Anything const& argument);
    void SetWindowID(Utilities::SmartPointer<PlatformIndependentWindowID> const& window) { window_ = window; }
    /// Replaces the size range that the attributes gave.
    void SetSizeInformation(unsigned long minimalWidth, unsigned long maximalWidth,
                            unsigned long minimalHeight, unsigned long maximalHeight);
    void PassOnPaintWindowDecorators(PlatformIndependentDeviceContext& context) const;
    /// The first child, null if there is none.
    GUIElement* GetFirstChild() const;

    /// A number that grows with every known change of some element's size range or children. What a
    /// container worked out from size ranges is valid only while the number is the same.
    static std::uint64_t GetLayoutRevision() { return layoutRevision; }
    static void AdvanceLayoutRevision() { ++layoutRevision; }
    /// Grows whenever this element gets or loses children.
    std::uint32_t GetChildrenRevision() const { return childrenRevision_; }

private:
    friend class ReleasedElements;
    struct NameIndex;

    void Detach();
    void KeepParentWindow(PlatformIndependentWindowID const& parent);
    GUIElement* FindRegistered(Utilities::String const& name) const;
    GUIElement* Search(Utilities::String const& name) const;
    void EnterNames(NameIndex& index) const;
    void OnChildrenChanged();

    static std::uint64_t layoutRevision;
    /// Grows whenever an element gets another name, or some element gets or loses children.
    static std::uint64_t namesRevision;

    // What a layout reads and writes is together in front, and the alignment keeps it in one cache
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
    bool released_ = false;
    Utilities::String name_;
    Utilities::String helpFile_;
    unsigned long helpTopic_ = 0;
    DialogDataSource* dataSource_ = nullptr;
    /// Shared with the parent and the siblings that have the same one.
    std::shared_ptr<PlatformIndependentWindowID const> parentWindow_;
    Utilities::SmartPointer<PlatformIndependentWindowID> window_;
    GUIElement* parentElement_ = nullptr;
    std::unique_ptr<OwnedCallback<GUIElement>> onUpdate_;
    Children children_;
    mutable std::unique_ptr<NameIndex> names_;
};

} // namespace GUI
