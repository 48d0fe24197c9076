#include "gui/shell/HelpFile.h"

#include "Utilities/ProgramDirectory.h"

#include <fstream>

namespace GUI {

using Utilities::String;

String FindHelpFile(String const& name, String const& language) {
    String const directory = String(Utilities::GetProgramDirectory()) + "/Help/";
    String primary = directory + name + ".hlp";
    if (std::ifstream(primary.GetStdString()).good()) return primary;
    String english(name);
    english.Replace(language, "English");
    return directory + english + ".hlp";
}

} // namespace GUI
