#pragma once

#include <string_view>

/// What a plug-in module must have in common with the program that loads it, as a note in the module's
/// file. `Plugin` reads and compares it before anything in the module runs: a difference would otherwise
/// show as a crash in the first call.
///
/// The number is raised with every change of a class that both sides use: of its members, of the order of
/// its virtual operations, or of what they mean.
#define NORVELIAN_PLUGIN_INTERFACE_NUMBER 10

#define NORVELIAN_TEXT_OF_(macro) #macro
#define NORVELIAN_TEXT_OF(macro) NORVELIAN_TEXT_OF_(macro)

#ifdef _GLIBCXX_USE_CXX11_ABI
#define NORVELIAN_STRINGS NORVELIAN_TEXT_OF(_GLIBCXX_USE_CXX11_ABI)
#else
#define NORVELIAN_STRINGS "0"
#endif

namespace Utilities {

/// The interface that this code is compiled for: our own number, and the form of the standard library's
/// strings.
inline constexpr char pluginInterface[] =
    "interface " NORVELIAN_TEXT_OF(NORVELIAN_PLUGIN_INTERFACE_NUMBER) ", strings " NORVELIAN_STRINGS;

/// A note of the executable format: sizes and type, the owner's name, the text.
struct PluginInterfaceNote {
    static constexpr char owner[] = "Norvelian";
    static constexpr unsigned typeOfInterface = 1;

    unsigned ownerSize = sizeof owner;
    unsigned textSize = sizeof pluginInterface;
    unsigned type = typeOfInterface;
    /// Both are padded to a multiple of four bytes.
    char ownerName[(sizeof owner + 3) / 4 * 4] = {};
    char text[(sizeof pluginInterface + 3) / 4 * 4] = {};

    constexpr PluginInterfaceNote() {
        std::string_view(owner).copy(ownerName, sizeof owner);
        std::string_view(pluginInterface).copy(text, sizeof pluginInterface);
    }
};

} // namespace Utilities

/// To be written once in a source file of every plug-in module.
#define NORVELIAN_PLUGIN_INTERFACE_NOTE                                                                      \
    [[gnu::section(".note.norvelian"), gnu::used,                                                            \
      gnu::aligned(4)]] static constexpr Utilities::PluginInterfaceNote norvelianPluginInterfaceNote
