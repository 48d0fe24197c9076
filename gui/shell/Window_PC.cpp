#include "gui/shell/Window_PC.h"

#include "Utilities/LanguageServiceInterface.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/Application.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/platform/TextConversion_PC.h"
#include "gui/shell/TopLevel_PC.h"

#include <algorithm>

namespace GUI {

using Utilities::Anything;
using Utilities::LanguageServiceInterface;

namespace {

Utilities::ComponentCreatorNormal<Window_PC> creator({"Window", "$Revision: 1.45 $", "GUI"});

constexpr Attribute attributes[] = {WindowKeys::name,
                                    WindowKeys::windowCaption,
                                    WindowKeys::x,
                                    WindowKeys::y,
                                    WindowKeys::width,
                                    WindowKeys::height,
                                    WindowKeys::windowResizeable,
                                    WindowKeys::closeable,
                                    WindowKeys::topMost};
AttributeTable const table("Window", "GUIElement", attributes);

} // namespace

Window_PC::~Window_PC() {
    onUpdate_.Release(GetDataSource(), GUIElement::GetElementName(), "OnUpdate");
    ReleaseChildren();
    Application::Instance().RemoveDialogFromList(*this);
    if (GetDataSource() && GetDataSource()->GetDialogRootElement() == this)
        GetDataSource()->SetDialogRootElement(nullptr);
    if (!window_) return;
    window_->hide();
    window_->Detach();
    delete window_.data();
}

void Window_PC::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                           DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    CreatePlatformWindow(parent, description);
    Application::Instance().SetDialogToList(*this);
    if (dataSource) {
        dataSource->SetDialogRootElement(this);
        dataSource->SetCallback(GetElementName(), "OnUpdate", onUpdate_.Get());
    }
    CreateChildren(*GetWindowID(), description, dataSource);

    AttributeReader const reader(description);
    ApplyLimits();
    SetSize(reader.Unsigned(WindowKeys::width), reader.Unsigned(WindowKeys::height));
    ApplyPlace(description);

    Anything const visible = dataSource ? dataSource->GetValue(GetElementName(), "Visible") : Anything();
    if (!visible.IsValid() || visible.GetBool()) window_->show();
}

void Window_PC::CreatePlatformWindow(PlatformIndependentWindowID const& parent,
                                     DescriptionTree const& description) {
    AttributeReader const reader(description);
    reader.Text(WindowKeys::name);
    resizeable_ = reader.FlagUnlessNo(WindowKeys::windowResizeable);
    closeable_ = reader.FlagUnlessNo(WindowKeys::closeable);
    Qt::WindowFlags flags = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                            Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint;
    if (resizeable_) flags |= Qt::WindowMaximizeButtonHint;
    if (closeable_) flags |= Qt::WindowCloseButtonHint;
    if (reader.Flag(WindowKeys::topMost)) flags |= Qt::WindowStaysOnTopHint;

    auto window =
        std::make_unique<CNorvelianWnd>(*this, PlatformIndependentWindowID_PC::WindowOf(parent), flags);
    window_ = window.release();
    Utilities::SmartPointer<PlatformIndependentWindowID_PC> const identity(
        Utilities::ResolveComponent<PlatformIndependentWindowID>("PlatformIndependentWindowID"));
    if (identity.IsNull()) throw Norvelian::Utilities::Exceptions::RuntimeException("Couldn't create Window");
    identity->SetWindow(window_);
    SetWindowID(identity);
    window_->setObjectName(ToPlatformText(GetElementName()));
    caption_ = reader.Text(WindowKeys::windowCaption);
    window_->setWindowTitle(ToPlatformText(LanguageServiceInterface::GetTranslation(caption_)));
}

void Window_PC::ApplyPlace(DescriptionTree const& description) {
    AttributeReader const reader(description);
    if (auto const saved = FindSavedPlace(GetElementName()))
        TopLevel::MoveTo(*window_, *saved);
    else if (reader.Has(WindowKeys::x) && reader.Has(WindowKeys::y))
        window_->move(static_cast<int>(reader.Long(WindowKeys::x)),
                      static_cast<int>(reader.Long(WindowKeys::y)));
}

void Window_PC::SetPosition(unsigned long x, unsigned long y) {
    // A negative place reaches this operation as a large number.
    long const left = std::max<long>(static_cast<int>(x), 0);
    long const top = std::max<long>(static_cast<int>(y), 0);
    GUIElement::SetPosition(static_cast<unsigned long>(left), static_cast<unsigned long>(top));
    QPoint const corner(static_cast<int>(left), static_cast<int>(top));
    if (window_ && window_->pos() != corner) window_->move(corner);
    SavePlace(GetElementName(), left, top);
}

void Window_PC::OnMoved(int x, int y) {
    GUIElement::SetPosition(static_cast<unsigned long>(std::max(x, 0)),
                            static_cast<unsigned long>(std::max(y, 0)));
    SavePlace(GetElementName(), x, y);
}

void Window_PC::SetSize(unsigned long width, unsigned long height) {
    GUIElement::SetSize(width, height);
    QSize const size(static_cast<int>(width), static_cast<int>(height));
    if (window_ && !resizeable_)
        window_->setFixedSize(size);
    else if (window_ && window_->size() != size)
        window_->resize(size);
    LayOut();
}

void Window_PC::OnResized(int width, int height) {
    auto const newWidth = static_cast<unsigned long>(width);
    auto const newHeight = static_cast<unsigned long>(height);
    // A window that appears is told the size that it was laid out for.
    if (!IfSizeEqual(newWidth, newHeight)) SetSize(newWidth, newHeight);
}

void Window_PC::LayOut() {
    // The limits may have kept the window from the size it was given, or changed its size.
    if (window_)
        GUIElement::SetSize(static_cast<unsigned long>(window_->width()),
                            static_cast<unsigned long>(window_->height()));
    GUIElement* const child = GetFirstChild();
    if (!child) return;
    unsigned long width = 0;
    unsigned long height = 0;
    GetSize(width, height);
    child->SetPosition(0, 0);
    child->SetSize(width, height);
}

void Window_PC::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                   unsigned long& minimalHeight, unsigned long& maximalHeight) {
    if (GUIElement* const child = GetFirstChild())
        child->GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
    else
        GUIElement::GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
}

void Window_PC::ApplyLimits() {
    SizeRange range;
    GetSizeInformation(range.minimalWidth, range.maximalWidth, range.minimalHeight, range.maximalHeight);
    if (resizeable_) TopLevel::ApplyLimits(*window_, range, true);
}

void Window_PC::RecalculateSize() {
    GUIElement::RecalculateSize();
    if (!window_) return;
    ApplyLimits();
    LayOut();
}

long Window_PC::OnUpdate(Anything const& command) {
    if (window_ && GetDataSource()) {
        Anything const visible = GetDataSource()->GetValue(GetElementName(), "Visible");
        if (visible.IsValid()) window_->setVisible(visible.GetBool());
        ShowCaption();
    }
    return GUIElement::OnUpdate(command);
}

void Window_PC::ShowCaption() {
    if (!window_) return;
    // Asked for each time: what a data source puts together holds translated text.
    Anything const caption =
        GetDataSource() ? GetDataSource()->GetValue(GetElementName(), "Caption") : Anything();
    if (caption.IsOfTypeString()) caption_ = caption.GetString();
    window_->setWindowTitle(ToPlatformText(LanguageServiceInterface::GetTranslation(caption_)));
}

void Window_PC::OnLanguageChanged() {
    GUIElement::OnLanguageChanged();
    ShowCaption();
}

void Window_PC::OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                        GUIElement const& /*element*/) const {
    if (GUIElement const* const child = GetFirstChild()) child->OnPaintWindowDecorators(context, *this);
}

} // namespace GUI
