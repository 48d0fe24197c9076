#pragma once

#include "gui/elements/description/Attributes.h"

#include <optional>

namespace GUI {

/// Attributes of "Window" and "Dialog".
namespace WindowKeys {

inline constexpr Attribute name{"ElementName", AttributeType::ElementName, "",
                                "Name of the window; its place is remembered under it", true};
inline constexpr Attribute x{"X", AttributeType::Number, "",
                             "Left edge on the screen; the desktop's choice if absent"};
inline constexpr Attribute y{"Y", AttributeType::Number, "", "Top edge on the screen"};
inline constexpr Attribute width{"Width", AttributeType::Number, "", "Width of the inside in pixels", true};
inline constexpr Attribute height{"Height", AttributeType::Number, "", "Height of the inside in pixels",
                                  true};
inline constexpr Attribute closeable{"Closeable", AttributeType::Flag, "Yes",
                                     "Whether the user can close it"};

inline constexpr Attribute theme{
    "Theme", AttributeType::Text, "",
    "\"Light\", \"Dark\", \"Report\" or \"Line\"; without one that of the parent window, or none"};
inline constexpr Attribute surround{
    "Surround", AttributeType::Text, "Theme",
    "What is around measured colours with a theme: \"Theme\", \"N5\" or \"White\"; F7 takes the next"};

inline constexpr Attribute windowCaption{"Caption", AttributeType::Text,
                                         "No caption in the window description", "Title"};
inline constexpr Attribute windowResizeable{"Resizeable", AttributeType::Flag, "Yes",
                                            "Whether the user can resize it"};
inline constexpr Attribute topMost{"TopMost", AttributeType::Flag, "No", "Stays above other windows"};

inline constexpr Attribute dialogCaption{"Caption", AttributeType::Text,
                                         "No caption in the Dialog description", "Title"};
inline constexpr Attribute dialogX{"X", AttributeType::Number, "20",
                                   "Left edge from the parent window's inside"};
inline constexpr Attribute dialogY{"Y", AttributeType::Number, "0",
                                   "Top edge from the parent window's inside"};
inline constexpr Attribute dialogResizeable{"Resizeable", AttributeType::Flag, "No",
                                            "Whether the user can resize it"};
inline constexpr Attribute titleBar{"TitleBar", AttributeType::Flag, "Yes", "A title bar at all"};
inline constexpr Attribute escKeyElementName{"EscKeyElementName", AttributeType::ElementName, "",
                                             "The element whose click the Esc key triggers"};
inline constexpr Attribute enterKeyElementName{"EnterKeyElementName", AttributeType::ElementName, "",
                                               "The element whose click the Enter key triggers"};
inline constexpr Attribute confirmDiscard{"ConfirmDiscard", AttributeType::Flag, "No",
                                          "Asks before Esc or closing loses what was entered"};
inline constexpr Attribute keepPlace{"KeepPlace", AttributeType::Flag, "No",
                                     "Whether it opens where it was when it was open last"};
inline constexpr Attribute backgroundBitmap{"BackgroundBitmap", AttributeType::ImageName, "",
                                            "Image under the elements, from the top left corner"};
inline constexpr Attribute backgroundColor{"BackgroundColor", AttributeType::Colour, "", "Background"};

} // namespace WindowKeys

/// A place on the screen.
struct WindowPlace {
    short x = 0;
    short y = 0;
};

/// Reads and writes the places that windows had, in the section "Windows" of the preferences, as
/// "y,x". Nothing is saved or found without the component "Preferences".
std::optional<WindowPlace> FindSavedPlace(Utilities::String const& windowName);
/// A negative coordinate is saved as 0.
void SavePlace(Utilities::String const& windowName, long x, long y);

/// The size range of a top-level window: that of its first child, or unbounded.
struct SizeRange {
    unsigned long minimalWidth = 0;
    unsigned long maximalWidth = 10000;
    unsigned long minimalHeight = 0;
    unsigned long maximalHeight = 10000;
};

} // namespace GUI
