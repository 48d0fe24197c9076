#include "services/programs/RunApplicationDataSource_PC.h"

#include "Utilities/Directory_PC.h"
#include "Utilities/Limits.h"
#include "Utilities/WholeFile.h"
#include "core/creators/ComponentCreator.h"
#include "gui/elements/application/Application.h"
#include "services/IniText.h"
#include "services/programs/ChildProcesses_PC.h"
#include "services/programs/CommandLine.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace GUI {

using Utilities::String;

namespace {

Utilities::ComponentCreatorNormal<RunApplicationDataSource_PC> const creator({"RunApplicationDataSource",
                                                                              "$Revision: 1.8 $", "GUI"});

constexpr char const* registry = "/norvelian/programs.ini";

std::string DirectoryOf(std::string const& path) {
    std::size_t const slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, std::max<std::size_t>(slash, 1));
}

/// The child is in another directory when it looks for it.
std::string Absolute(std::string const& program) {
    return program.find('/') == std::string::npos ? program : std::filesystem::absolute(program).string();
}

/// The first attempt's reason is told if the second one fails too.
bool Start(std::string const& path, std::vector<std::string> parameters, std::string const& commandLine) {
    std::string const program = Utilities::Directory_PC::ConvSeperatorDependend(path);
    if (program.empty()) return false;
    parameters.insert(parameters.begin(), Absolute(program));
    std::string directory = DirectoryOf(parameters.front());
    // A bare name is looked for where programs are, not in whatever directory this one was started from.
    int const failure = directory.empty() ? ENOENT : ChildProcesses::Start(parameters, directory, false);
    if (failure == 0) return true;
    std::vector<std::string> words = SplitCommandLine(program + ' ' + commandLine);
    if (!words.empty()) words.front() = Absolute(words.front());
    // What was no path of a file has no directory either.
    if (std::error_code none; !std::filesystem::is_directory(directory, none)) directory.clear();
    if (ChildProcesses::Start(words, directory, true) == 0) return true;
    Application::Instance().ReportError("File: " + path + " not found!\n(Error: " + std::to_string(failure) +
                                        ")");
    return false;
}

/// In quotes, as one word of a command line.
std::string Quoted(std::string const& word) {
    std::string text = "\"";
    for (char const character : word) {
        if (character == '"' || character == '\\') text += '\\';
        text += character;
    }
    return text + '"';
}

std::optional<std::string> FindRegistered(std::string const& section, std::string const& key) {
    char const* const listed = std::getenv("XDG_CONFIG_DIRS"); // NOLINT(concurrency-mt-unsafe): GUI thread
    std::string const directories = listed && *listed ? listed : "/etc/xdg";
    for (std::size_t start = 0; start <= directories.size();) {
        std::size_t const end = std::min(directories.find(':', start), directories.size());
        std::string const directory = directories.substr(start, end - start);
        start = end + 1;
        if (!directory.starts_with('/')) continue;
        auto const file =
            Utilities::ReadWholeFile(directory + registry, Utilities::Limits::Get().settingsBytes);
        if (file.state != Utilities::FileState::Read) continue;
        auto const value = Utilities::IniText::FindValue(file.contents, section, key);
        return value ? std::optional(std::string(*value)) : std::nullopt;
    }
    return {};
}

} // namespace

bool RunApplicationDataSource_PC::Run(String const& path, String const& parameters) {
    std::string const& line = parameters.GetStdString();
    return Start(path.GetStdString(), SplitCommandLine(line), line);
}

bool RunApplicationDataSource_PC::RunFile(Utilities::SmartPointer<Utilities::File> program,
                                          Utilities::SmartPointer<Utilities::File> document) {
    if (program.IsNull() || document.IsNull()) return false;
    // The child is in the program's directory.
    std::string const name =
        std::filesystem::absolute(
            Utilities::Directory_PC::ConvSeperatorDependend(document->GetPath()).GetStdString())
            .string();
    return Start(program->GetPath().GetStdString(), {name}, Quoted(name));
}

bool RunApplicationDataSource_PC::RunRegistered(Utilities::Anything const& spec) {
    if (!spec.IsValid() || !spec.IsOfTypeString()) return false;
    String const& text = spec.GetString();
    if (text.GetTokenCount(':') < 3) return false;
    auto const directory =
        FindRegistered(text.GetToken(0, ':').GetStdString(), text.GetToken(1, ':').GetStdString());
    if (!directory) return false;
    return ChildProcesses::Start({*directory + '/' + text.GetToken(2, ':').GetStdString()}, *directory,
                                 false) == 0;
}

} // namespace GUI
