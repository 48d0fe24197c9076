#include "gui/charts/LabGraphSetting.h"

#include "gui/elements/description/ElementRegistration.h"

namespace GUI {

using Utilities::String;

namespace {

constexpr Attribute xyZeroPos{"XYZeroPos", AttributeType::Text, "100,90", "\"x,y\", the pixel of a = b = 0"};
constexpr Attribute lZeroPos{"LZeroPos", AttributeType::Text, "20,160",
                             "\"x,y\", the pixel of the bar's foot"};
constexpr Attribute xySize{"XYSize", AttributeType::Number, "80", "Pixels of the plane's range"};
constexpr Attribute lSize{"LSize", AttributeType::Number, "100", "Pixels of the bar's range"};
constexpr Attribute xyRange{"XYRange", AttributeType::Number, "100", "Chroma at the plane's edge"};
constexpr Attribute lRange{"LRange", AttributeType::Text, "0,100", "\"begin,end\", the bar's lightness"};
constexpr Attribute backgroundRadius{"BackgroundRadius", AttributeType::Number, "0",
                                     "Radius of a disc behind the plane's marks"};
constexpr Attribute attributeList[] = {
    xyZeroPos, lZeroPos, xySize,           lSize,
    xyRange,   lRange,   backgroundRadius, CommonAttributes::backgroundBitmap};

ElementRegistration<LabGraphSetting, GUIElement> const
    registration({"LabGraphSetting", "$Revision: 1.1 $", "GUI"}, attributeList);

LabGraphView::Place PlaceOf(String const& text) {
    return {text.GetToken(0, ',').GetShort(), text.GetToken(1, ',').GetShort()};
}

} // namespace

void LabGraphSetting::Initialize(PlatformIndependentWindowID const& parent,
                                 DescriptionTree const& description, DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    setting_ = description;
}

LabGraphView LabGraphView::Read(AttributeMap const& setting) {
    AttributeReader const reader(setting);
    LabGraphView view;
    view.xyZero = PlaceOf(reader.Text(xyZeroPos));
    view.lZero = PlaceOf(reader.Text(lZeroPos));
    view.xySize = reader.Text(GUI::xySize).GetShort();
    view.lSize = reader.Text(GUI::lSize).GetShort();
    view.xyRange = reader.Number(GUI::xyRange);
    String const range = reader.Text(lRange);
    view.lBegin = range.GetToken(0, ',').GetDouble();
    view.lEnd = range.GetToken(1, ',').GetDouble();
    view.backgroundRadius = reader.Text(GUI::backgroundRadius).GetShort();
    return view;
}

} // namespace GUI
