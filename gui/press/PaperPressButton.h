#pragma once

#include "gui/controls/Button.h"
#include "gui/controls/ButtonPictures.h"
#include "gui/elements/SelectableObject.h"

#include <array>

namespace Ostrinda {

/// The button for one combination of paper and press in a list of jobs: a picture for each of its states, a
/// second set of pictures while its job is active, three texts over the picture and a warning sign.
///
/// Attributes: "ToolTipText" and "AccessibleName" (none; keys of the language service; without the latter it
/// is called by its texts), "Number" (none; at the lower right). It is as large as the picture "PaperPressU"
/// of the image service; the others have the suffixes "D" pressed, "X" disabled, "O" under the mouse, and
/// "UA", "DA", "XA", "OA" while active. The first one that is missing ends the loading.
///
/// Asked of the data source at each update, each used if it is valid: "State" (bool: pressed for good),
/// "ToolTipText", "PaperPressActive" (bool), "PaperPressAttention" (bool: the warning sign, the picture
/// "Warnung"), "TopLineColor", "TopLineText", "BottomLineText", "Show" (bool; hidden it keeps its place),
/// "Enable", "Enabled" and "Visible" as every control. The lines are shown while it is active, in the top
/// line's colour; black means that the colour isn't known, and adds two question marks. Texts that are too
/// wide are shortened.
///
/// A click tells "State" (long: 0 or 1) and runs "OnClick" with the element's name. While the mouse is over
/// it, it is the selection of the topic "PropertyInspector".
class PaperPressButton : public GUI::Button, public GUI::SelectableObject {
public:
    static constexpr GUI::Attribute number{"Number", GUI::AttributeType::Text, "",
                                           "The number at the lower right"};
    static constexpr GUI::Attribute attributes[] = {GUI::ControlAttributes::toolTipText, number,
                                                    GUI::ControlAttributes::accessibleName};
    static constexpr char const* pictureName = "PaperPress";

    void Invariant() const override {}
    Diagnostics::String GetValueString() override { return "PaperPressButton"; }
    void Initialize(GUI::PlatformIndependentWindowID const& parent, GUI::DescriptionTree const& description,
                    GUI::DialogDataSource* dataSource) override;

    /// The picture and what is written over it, on a button of that size.
    void PaintFace(GUI::PlatformIndependentDeviceContext& context, GUI::ButtonState const& state,
                   short width);
    /// It becomes the selected object when the mouse comes, and nothing is selected when it goes.
    void OnMouseOver(bool over);

protected:
    void OnDetach() override;
    /// Reads what the face shows.
    void ReadFace();
    /// False if one is missing.
    bool LoadPictures();
    bool HasPictures() const { return loaded_[0]; }
    unsigned long GetPictureWidth() const { return pictureWidth_; }
    unsigned long GetPictureHeight() const { return pictureHeight_; }
    /// The texts in one, for who can't see them.
    Utilities::String GetTexts() const;

private:
    static constexpr std::size_t pictureCount = 9;

    /// The number of the picture for a state; those of an active button are behind the others.
    std::size_t ChoosePicture(GUI::ButtonState const& state) const;

    Utilities::String number_;
    Utilities::String topLine_;
    Utilities::String bottomLine_;
    GUI::RGBVector topLineColor_;
    bool active_ = false;
    bool attention_ = false;
    bool mouseOver_ = false;
    std::array<bool, pictureCount> loaded_{};
    unsigned long pictureWidth_ = 0;
    unsigned long pictureHeight_ = 0;
};

} // namespace Ostrinda
