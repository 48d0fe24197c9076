// Descriptions of windows: any text gives a tree or a DescriptionException, and nothing else.
#include "core/component/ComponentCreatorBase.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/GUIElement.h"
#include "gui/elements/description/GUIDescriptionReader.h"

#include <cstdint>
#include <string_view>

namespace {

// The reader asks the directory which components there are.
using Creator = Utilities::ComponentCreatorNormal<GUI::GUIElement>;
Creator const creators[] = {Creator({"Window", "1", "GUI"}), Creator({"HBox", "1", "GUI"}),
                            Creator({"Pane", "1", "GUI"}), Creator({"LoopBox", "1", "GUI"})};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    try {
        GUI::GUIDescriptionReader::Parse({reinterpret_cast<char const*>(data), size}, "fuzz");
    } catch (GUI::DescriptionException const&) {
        // The one contracted answer to a faulty description.
    }
    return 0;
}
