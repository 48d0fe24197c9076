#include "gui/report/ReportDrawing_PC.h"

#include "Utilities/NamingService.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"
#include "gui/platform/PlatformIndependentWindowID_PC.h"
#include "gui/report/ReportReader.h"
#include "gui/shell/ElementPicture_PC.h"

#include <algorithm>

namespace GUI {

using Utilities::Anything;
using Utilities::String;

namespace {

/// Between two elements.
constexpr long gap = 16;

} // namespace

ReportDrawing_PC::ReportDrawing_PC(DescriptionTree const& node, DialogDataSource* dataSource)
    : description_(node),
      height_(static_cast<long>(std::min(AttributeReader(node).Unsigned(reportDrawingHeight), 10000UL))) {
    PlatformIndependentWindowID_PC identity;
    identity.SetWindow(&window_);
    for (auto child = description_.GetChildren(); child.IsValid(); ++child) {
        DescriptionTree const& inside = *child.Current();
        auto const element = Utilities::ResolveComponent<GUIElement>(
            AttributeReader(inside).Text(CommonAttributes::elementType));
        elements_.push_back(element);
        element->Initialize(identity, inside, dataSource);
        if (dataSource) BringData(inside, *element, *dataSource);
    }
}

void ReportDrawing_PC::BringData(DescriptionTree const& node, GUIElement& root,
                                 DialogDataSource& dataSource) const {
    String const name = AttributeReader(node).Text(CommonAttributes::elementName);
    if (name.Length() != 0) {
        Anything const message = dataSource.GetValue(name, "UpdateMessage");
        if (message.IsValid() && root.IsAttached())
            (root.GetElementName() == name ? root : root.FindElement(name)).OnUpdate(message);
    }
    for (auto child = node.GetChildren(); child.IsValid(); ++child)
        BringData(*child.Current(), root, dataSource);
}

void ReportDrawing_PC::LayOut(PlatformIndependentDeviceContext& /*context*/, long width) {
    auto const count = std::max(static_cast<long>(elements_.size()), 1L);
    elementWidth_ = std::max((width - (count - 1) * gap) / count, 1L);
    for (auto const& element : elements_) {
        element->SetPosition(0, 0);
        element->SetSize(static_cast<unsigned long>(elementWidth_), static_cast<unsigned long>(height_));
    }
}

void ReportDrawing_PC::Paint(PlatformIndependentDeviceContext& context, std::size_t /*piece*/,
                             long top) const {
    auto* const platform = dynamic_cast<PlatformIndependentDeviceContext_PC*>(&context);
    if (!platform) return;
    QPainter& painter = platform->GetPainter();
    long left = 0;
    for (auto const& element : elements_) {
        QRect const place(static_cast<int>(left), static_cast<int>(top), static_cast<int>(elementWidth_),
                          static_cast<int>(height_));
        ElementPicture_PC::Draw(*element, painter, place, context.GetTheme());
        left += elementWidth_ + gap;
    }
}

} // namespace GUI
