#include "gui/shell/Dialog_PC.h"

#include "gui/elements/DialogObserver.h"
#include "gui/elements/LayoutScope.h"
#include "gui/elements/Topics.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/application/QuestionBox.h"
#include "gui/elements/description/ElementRegistration.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"

#include <QLineEdit>
#include <QPalette>
#include <QPlainTextEdit>
#include <algorithm>

namespace GUI {

using Utilities::Anything;

namespace {

constexpr Attribute ownAttributes[] = {WindowKeys::name,
                                       WindowKeys::dialogCaption,
                                       WindowKeys::dialogX,
                                       WindowKeys::dialogY,
                                       WindowKeys::width,
                                       WindowKeys::height,
                                       WindowKeys::dialogResizeable,
                                       WindowKeys::closeable,
                                       WindowKeys::titleBar,
                                       WindowKeys::escKeyElementName,
                                       WindowKeys::enterKeyElementName,
                                       WindowKeys::confirmDiscard,
                                       WindowKeys::keepPlace,
                                       WindowKeys::backgroundBitmap,
                                       WindowKeys::backgroundColor,
                                       WindowKeys::theme,
                                       WindowKeys::surround};
constexpr auto attributes = CommonAttributes::WithUnusedSizes(
    ownAttributes, "No effect: the size range of a window is that of its first child");
ElementRegistration<Dialog_PC, GUIElement> const registration({"Dialog", "$Revision: 1.34 $", "GUI"},
                                                              attributes);

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
    // For a dialog that no smart pointer held; one that was released has let go already.
    Dialog_PC::OnDetach();
    ReleaseChildren();
}

void Dialog_PC::OnDetach() {
    onClose_.Release(GetDataSource(), GUIElement::GetElementName(), Events::close);
    ForgetRootElement();
    Application::Instance().RemoveDialogFromList(*this);
    if (GetDataSource() && GetDataSource()->GetDialogRootElement() == this)
        GetDataSource()->SetDialogRootElement(nullptr);
    if (CNorvelianDialog* const dialog = GetDialog()) {
        dialog->hide();
        dialog->Detach();
    }
    top_.Release();
    GUIElement::OnDetach();
}

void Dialog_PC::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                           DialogDataSource* dataSource, bool modeless) {
    CallScope const call(*this);
    GUIElement::Initialize(parent, description, dataSource);
    description_ = description;
    modeless_ = modeless;
    AttributeReader const reader(description_);
    SetWindowID(
        top_.Take(std::make_unique<CNorvelianDialog>(*this, PlatformIndependentWindowID_PC::WindowOf(parent),
                                                     FlagsFor(reader, modeless)),
                  "Dialog: Couldn't init Dialog"));
    GetDialog()->setModal(!modeless);
    closeable_ = reader.FlagUnlessNo(WindowKeys::closeable);
    x_ = reader.Long(WindowKeys::dialogX);
    y_ = reader.Long(WindowKeys::dialogY);
    width_ = reader.Unsigned(WindowKeys::width);
    height_ = reader.Unsigned(WindowKeys::height);
    ReadAttributes();
    if (dataSource) dataSource->SetCallback(GetElementName(), Events::close, onClose_.Get());
    if (modeless) OnInitDialog();
}

void Dialog_PC::ReadAttributes() {
    AttributeReader const reader(description_);
    ShowCaption();
    top_.ReadTheme(description_);
    fixedSize_ = !reader.Flag(WindowKeys::dialogResizeable);
    escKeyElementName_ = reader.Text(WindowKeys::escKeyElementName);
    enterKeyElementName_ = reader.Text(WindowKeys::enterKeyElementName);
    confirmDiscard_ = reader.Flag(WindowKeys::confirmDiscard);
    top_.SetBackgroundBitmap(reader.Text(WindowKeys::backgroundBitmap));
    if (reader.HasColour(WindowKeys::backgroundColor)) {
        RGBVector const color = reader.Colour(WindowKeys::backgroundColor);
        QPalette palette = GetDialog()->palette();
        palette.setColor(QPalette::Window, QColor(color.GetRed(), color.GetGreen(), color.GetBlue()));
        GetDialog()->setPalette(palette);
    }
}

void Dialog_PC::ShowCaption() {
    top_.SetTitle(AttributeReader(description_).Text(WindowKeys::dialogCaption));
}

void Dialog_PC::OnLanguageChanged() {
    CallScope const call(*this);
    GUIElement::OnLanguageChanged();
    if (IsAttached()) ShowCaption();
}

void Dialog_PC::OnInitDialog() {
    CallScope const call(*this);
    if (!GetDialog()) return;
    // A dialog without a parent is a main window; one with a parent counts while it is modal.
    bool const hasParent = GetDialog()->parentWidget() != nullptr;
    if (!hasParent || !modeless_)
        Application::Instance().SetDialogToList(*this);
    else
        Application::Instance().EnterWindow(*this);
    CreateContents();
    if (auto* const observer = dynamic_cast<DialogObserver*>(GetDataSource())) observer->Initialize();
    if (!GetDialog()) return;
    LayOutContents();
    QPoint corner(static_cast<int>(x_), static_cast<int>(y_));
    if (hasParent) corner = GetDialog()->parentWidget()->mapToGlobal(corner);
    // Before the first move, which is kept.
    auto const kept = KeepsPlace() ? FindSavedPlace(GetElementName()) : std::nullopt;
    SetPosition(static_cast<unsigned long>(corner.x()), static_cast<unsigned long>(corner.y()));
    if (kept) top_.MoveTo(*kept);
    // A modal dialog is shown by its own event loop.
    if (modeless_ && GetDialog()) GetDialog()->show();
}

void Dialog_PC::CreateContents() {
    ReleaseContents();
    // Elements may add nodes to the tree that they are made from, and a dialog may be shown again.
    DescriptionTree const contents = description_;
    CreateChildren(*GetWindowID(), contents, GetDataSource());
    if (IsAttached()) top_.ShowDescribedMenu();
    if (!IsAttached() || !GetDataSource()) return;
    GetDataSource()->SetDialogRootElement(this);
    auto* const observer = dynamic_cast<DialogObserver*>(GetDataSource());
    auto root = TopLevel::FindContent(*this);
    if (!observer || root.IsNull()) return;
    observer->SetRootElement(root);
}

void Dialog_PC::ForgetRootElement() {
    auto const root = TopLevel::FindContent(*this);
    auto* const observer = root.IsNull() ? nullptr : dynamic_cast<DialogObserver*>(GetDataSource());
    if (!observer || observer->GetRootElement().Get() != root.Get()) return;
    // The root lives in this dialog's window and must not outlive it.
    Utilities::SmartPointer<GUIElement> none;
    observer->SetRootElement(none);
}

void Dialog_PC::ReleaseContents() {
    ForgetRootElement();
    ReleaseChildren();
}

void Dialog_PC::LayOutContents() {
    SetSize(width_, height_);
    RecalculateSize();
}

long Dialog_PC::RunModal() {
    // Whatever happens while it is shown, this call is in the dialog.
    CallScope const call(*this);
    OnInitDialog();
    return GetDialog() ? GetDialog()->exec() : 0;
}

void Dialog_PC::Close(long result) {
    if (GetDialog()) GetDialog()->done(static_cast<int>(result));
}

bool Dialog_PC::HasWindow() const { return GetDialog() != nullptr; }

long Dialog_PC::OnClose(Anything const& /*argument*/) {
    Close(0);
    return 0;
}

void Dialog_PC::SetGUIDescriptionTree(DescriptionTree const& description) {
    CallScope const call(*this);
    if (!GetDialog()) return;
    ReleaseContents();
    if (!IsAttached()) return;
    description_ = description;
    GUIElement::Initialize(*GetParentWindowID(), description_, GetDataSource());
    ReadAttributes();
    CreateContents();
    if (!GetDialog()) return;
    LayOutContents();
    top_.RepaintAll();
}

void Dialog_PC::SetPosition(unsigned long x, unsigned long y) {
    GUIElement::SetPosition(x, y);
    if (GetDialog()) GetDialog()->move(static_cast<int>(x), static_cast<int>(y));
}

void Dialog_PC::SetSize(unsigned long width, unsigned long height) {
    GUIElement::SetSize(width, height);
    QSize const size(static_cast<int>(width), static_cast<int>(height));
    if (QWidget* const window = GetDialog(); window && top_.GetClientSize() != size) {
        // A size given by the program wins over the limits of the user's resizing, which stay otherwise.
        QSize const smallest = window->minimumSize();
        QSize const largest = window->maximumSize();
        window->setMinimumSize(0, 0);
        window->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        top_.Resize(size);
        if (fixedSize_) {
            top_.SetFixedSize(size);
        } else {
            window->setMinimumSize(smallest.boundedTo(window->size()));
            window->setMaximumSize(largest.expandedTo(window->size()));
        }
    }
    top_.LayOut();
}

bool Dialog_PC::KeepsPlace() const { return AttributeReader(description_).Flag(WindowKeys::keepPlace); }

void Dialog_PC::OnMoved(int x, int y) {
    GUIElement::SetPosition(static_cast<unsigned long>(x), static_cast<unsigned long>(y));
    if (KeepsPlace()) SavePlace(GetElementName(), x, y);
}

void Dialog_PC::OnResized() {
    QSize const size = top_.GetClientSize();
    if (!size.isValid()) return;
    GUIElement::SetSize(static_cast<unsigned long>(size.width()), static_cast<unsigned long>(size.height()));
    top_.LayOut();
}

void Dialog_PC::GetSizeInformation(unsigned long& minimalWidth, unsigned long& maximalWidth,
                                   unsigned long& minimalHeight, unsigned long& maximalHeight) {
    if (auto const child = TopLevel::FindContent(*this); !child.IsNull())
        child->GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
    else
        GUIElement::GetSizeInformation(minimalWidth, maximalWidth, minimalHeight, maximalHeight);
}

void Dialog_PC::RecalculateSize() {
    GUIElement::RecalculateSize();
    if (!GetDialog()) return;
    if (LayoutScope::IsRunning()) return LayoutScope::AskAgain(*this);
    SizeRange range;
    GetSizeInformation(range.minimalWidth, range.maximalWidth, range.minimalHeight, range.maximalHeight);
    top_.ApplyLimits(range, !fixedSize_);
    top_.LayOut();
}

void Dialog_PC::SetResizeable(bool resizeable) {
    fixedSize_ = !resizeable;
    RecalculateSize();
}

void Dialog_PC::OnPaintWindowDecorators(PlatformIndependentDeviceContext& context,
                                        GUIElement const& /*element*/) const {
    if (auto const child = TopLevel::FindContent(*this); !child.IsNull())
        child->OnPaintWindowDecorators(context, *this);
}

void Dialog_PC::OnEscape() {
    if (escKeyElementName_.Length() == 0 || !GetDataSource()) return;
    CallScope const call(*this);
    if (!MayDiscard() || !GetDataSource()) return;
    GetDataSource()->GetCallback(escKeyElementName_, Events::click).Execute(escKeyElementName_);
}

bool Dialog_PC::OnEnter() {
    if (enterKeyElementName_.Length() == 0 || !GetDataSource()) return false;
    CallScope const call(*this);
    GetDataSource()->GetCallback(enterKeyElementName_, Events::click).Execute(enterKeyElementName_);
    return true;
}

bool Dialog_PC::HasChanges() {
    Anything const answer = GetValue("HasChanges");
    if (answer.IsValid() || !GetDialog()) return answer.IsValid() && answer.GetBool();
    auto const lines = GetDialog()->findChildren<QLineEdit*>();
    auto const texts = GetDialog()->findChildren<QPlainTextEdit*>();
    return std::any_of(lines.begin(), lines.end(),
                       [](QLineEdit const* line) { return line->isModified(); }) ||
           std::any_of(texts.begin(), texts.end(),
                       [](QPlainTextEdit const* text) { return text->document()->isModified(); });
}

bool Dialog_PC::MayDiscard() {
    if (!confirmDiscard_ || !HasChanges()) return IsAttached();
    return QuestionBox::MayDiscard(*GetWindowID()) && IsAttached();
}

void Dialog_PC::OnCloseRequest() {
    CallScope const call(*this);
    if (MayDiscard()) Fire(Events::close, {});
}

} // namespace GUI
