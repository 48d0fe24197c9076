#include "gui/shell/Dialog_PC.h"

#include "Utilities/LanguageServiceInterface.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/Application.h"
#include "gui/elements/DialogObserver.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/platform/TextConversion_PC.h"
#include "gui/shell/TopLevel_PC.h"

#include <QPalette>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

Utilities::ComponentCreatorNormal<Dialog_PC> creator({"Dialog", "$Revision: 1.34 $", "GUI"});

constexpr Attribute attributes[] = {WindowKeys::name,
                                    WindowKeys::dialogCaption,
                                    WindowKeys::dialogX,
                                    WindowKeys::dialogY,
                                    WindowKeys::width,
                                    WindowKeys::height,
                                    WindowKeys::dialogResizeable,
                                    WindowKeys::closeable,
                                    WindowKeys::titleBar,
                                    WindowKeys::escKeyElementName,
                                    WindowKeys::backgroundBitmap,
                                    WindowKeys::backgroundColor};
AttributeTable const table("Dialog", "GUIElement", attributes);

Qt::WindowFlags FlagsFor(AttributeReader const& reader, bool modeless) {
    Qt::WindowFlags flags = (modeless ? Qt::Tool : Qt::Dialog) | Qt::CustomizeWindowHint;
    if (!reader.FlagUnlessNo(WindowKeys::titleBar)) return flags | Qt::FramelessWindowHint;
    flags |= Qt::WindowTitleHint;
    if (reader.FlagUnlessNo(WindowKeys::closeable))
        flags |= Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint;
    if (reader.Flag(WindowKeys::dialogResizeable)) flags |= Qt::WindowMinMaxButtonsHint;
    return flags;
}

} // namespace

Dialog_PC::~Dialog_PC() {
    onClose_.Release(GetDataSource(), GUIElement::GetElementName(), "OnClose");
    ReleaseContents();
    Application::Instance().RemoveDialogFromList(*this);
    if (GetDataSource() && GetDataSource()->GetDialogRootElement() == this)
        GetDataSource()->SetDialogRootElement(nullptr);
    if (!window_) return;
    window_->hide();
    window_->Detach();
    delete window_.data();
}

void Dialog_PC::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                           DialogDataSource* dataSource, bool modeless) {
    GUIElement::Initialize(parent, description, dataSource);
    description_ = description;
    modeless_ = modeless;
    AttributeReader const reader(description_);
    auto window = std::make_unique<CNorvelianDialog>(*this, PlatformIndependentWindowID_PC::WindowOf(parent),
                                                     FlagsFor(reader, modeless));
    window_ = window.release();
    Utilities::SmartPointer<PlatformIndependentWindowID_PC> const identity(
        Utilities::ResolveComponent<PlatformIndependentWindowID>("PlatformIndependentWindowID"));
    if (identity.IsNull())
        throw Norvelian::Utilities::Exceptions::RuntimeException("Dialog: Couldn't init Dialog");
    identity->SetWindow(window_);
    SetWindowID(identity);
    window_->setObjectName(ToPlatformText(GetElementName()));
    window_->setModal(!modeless);
    closeable_ = reader.FlagUnlessNo(WindowKeys::closeable);
    x_ = reader.Long(WindowKeys::dialogX);
    y_ = reader.Long(WindowKeys::dialogY);
    width_ = reader.Unsigned(WindowKeys::width);
    height_ = reader.Unsigned(WindowKeys::height);
    ReadAttributes();
    if (dataSource) dataSource->SetCallback(GetElementName(), "OnClose", onClose_.Get());
    if (modeless) OnInitDialog();
}

void Dialog_PC::ReadAttributes() {
    AttributeReader const reader(description_);
    ShowCaption();
    fixedSize_ = !reader.Flag(WindowKeys::dialogResizeable);
    escKeyElementName_ = reader.Text(WindowKeys::escKeyElementName);
    backgroundBitmap_ = reader.Text(WindowKeys::backgroundBitmap);
    if (reader.HasColour(WindowKeys::backgroundColor)) {
        RGBVector const color = reader.Colour(WindowKeys::backgroundColor);
        QPalette palette = window_->palette();
        palette.setColor(QPalette::Window, QColor(color.GetRed(), color.GetGreen(), color.GetBlue()));
        window_->setPalette(palette);
    }
}

void Dialog_PC::ShowCaption() {
    String const caption = AttributeReader(description_).Text(WindowKeys::dialogCaption);
    window_->setWindowTitle(ToPlatformText(Utilities::LanguageServiceInterface::GetTranslation(caption)));
}

void Dialog_PC::OnLanguageChanged() {
    GUIElement::OnLanguageChanged();
    if (window_) ShowCaption();
}

void Dialog_PC::OnInitDialog() {
    // A dialog without a parent is a main window; one with a parent counts while it is modal.
    bool const hasParent = window_->parentWidget() != nullptr;
    if (!hasParent || !modeless_)
        Application::Instance().SetDialogToList(*this);
    else
        Application::Instance().EnterWindow(*this);
    CreateContents();
    if (auto* const observer = dynamic_cast<DialogObserver*>(GetDataSource())) observer->Initialize();
    LayOutContents();
    QPoint corner(static_cast<int>(x_), static_cast<int>(y_));
    if (hasParent) corner = window_->parentWidget()->mapToGlobal(corner);
    SetPosition(static_cast<unsigned long>(corner.x()), static_cast<unsigned long>(corner.y()));
    // A modal dialog is shown by its own event loop.
    if (modeless_) window_->show();
}

void Dialog_PC::CreateContents() {
    ReleaseContents();
    // Elements may add nodes to the tree that they are made from, and a dialog may be shown again.
    DescriptionTree const contents = description_;
    CreateChildren(*GetWindowID(), contents, GetDataSource());
    if (!GetDataSource()) return;
    GetDataSource()->SetDialogRootElement(this);
    auto* const observer = dynamic_cast<DialogObserver*>(GetDataSource());
    if (!observer || !GetFirstChild()) return;
    auto root = GetChildrenList().Begin().Current();
    observer->SetRootElement(root);
}

void Dialog_PC::ReleaseContents() {
    auto* const observer = GetFirstChild() ? dynamic_cast<DialogObserver*>(GetDataSource()) : nullptr;
    if (observer && observer->GetRootElement().Get() == GetFirstChild()) {
        // The root hangs in this dialog's window and must not outlive it.
        Utilities::SmartPointer<GUIElement> none;
        observer->SetRootElement(none);
    }
    ReleaseChildren();
}

void Dialog_PC::LayOutContents() {
    SetSize(width_, height_);
    RecalculateSize();
}

long Dialog_PC::RunModal() {
    OnInitDialog();
    return window_ ? window_->exec() : 0;
}

void Dialog_PC::Close(long result) {
    if (window_) window_->done(static_cast<int>(result));
}

long Dialog_PC::OnClose(Anything const& /*argument*/) {
    Close(0);
    return 0;
}

void Dialog_PC::SetGUIDescriptionTree(DescriptionTree const& description) {
    if (!window_) return;
    ReleaseContents();
    description_ = description;
    GUIElement::Initialize(*GetParentWindowID(), description_, GetDataSource());
    ReadAttributes();
    CreateContents();
    LayOutContents();
    window_->RepaintNow();
}

void Dialog_PC::SetPosition(unsigned long x, unsigned long y) {
    GUIElement::SetPosition(x, y);
    if (window_) window_->move(static_cast<int>(x), static_cast<int>(y));
}

void Dialog_PC::SetSize(unsigned long width, unsigned long height) {
    GUIElement::SetSize(width, height);
    QSize const size(static_cast<int>(width), static_cast<int>(height));
    if (window_ && window_->size() != size) {
        window_->setMinimumSize(0, 0);
        window_->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        window_->resize(size);
        if (fixedSize_) window_->setFixedSize(size);
    }
    LayOut();
}

void Dialog_PC::LayOut() {
    GUIElement* const child = GetFirstChild();
    if (!child || !window_) return;
    child->SetPosition(0, 0);
    child->SetSize(static_cast<unsigned long>(window_->width()),
                   static_cast<unsigned long>(window_->height()));
}

void Dialog_PC::OnMoved(int x, int y) {
    GUIElement::SetPosition(static_cast<unsigned long>(x), static_cast<unsigned long>(y));
}

void Dialog_PC::OnResized() {
    if (!window_) return;
    GUIElement::SetSize(static_cast<unsigned long>(window_->width()),
                        static_cast<unsigned long>(window_->height()));
    LayOut();
}

void Dialog_PC::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                   unsigned long& minimalHeight, unsigned long& maximalHeight) {
    if (GUIElement* const child = GetFirstChild())
        child->GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
    else
        GUIElement::GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
}

void Dialog_PC::RecalculateSize() {
    GUIElement::RecalculateSize();
    if (!window_) return;
    SizeRange range;
    GetSizeInformation(range.minimalWidth, range.maximalWidth, range.minimalHeight, range.maximalHeight);
    TopLevel::ApplyLimits(*window_, range, !fixedSize_);
    LayOut();
}

void Dialog_PC::SetResizeable(bool resizeable) {
    fixedSize_ = !resizeable;
    RecalculateSize();
}

void Dialog_PC::OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                        GUIElement const& /*element*/) const {
    if (GUIElement const* const child = GetFirstChild()) child->OnPaintWindowDecorators(context, *this);
}

void Dialog_PC::PaintBackground(PlatformIndependentDeviceContext& context) const {
    if (backgroundBitmap_.Length() != 0) context.DrawImage(0, 0, backgroundBitmap_);
}

void Dialog_PC::OnEscape() {
    if (escKeyElementName_.Length() == 0 || !GetDataSource()) return;
    GetDataSource()->GetCallback(escKeyElementName_, "OnClick").Execute(escKeyElementName_);
}

void Dialog_PC::OnCloseRequest() {
    if (GetDataSource()) GetDataSource()->GetCallback(GetElementName(), "OnClose").Execute({});
}

} // namespace GUI
