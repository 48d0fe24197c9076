#pragma once

#include "Utilities/File.h"
#include "Utilities/Tools/SmartPointer.h"
#include "core/component/Component.h"
#include "gui/elements/DialogDataSource.h"

#include <map>
#include <string>

namespace GUI {

/// The data source behind menu items and buttons that start another program: the component
/// "RunApplicationDataSource", one for each request.
///
/// A host says by `SetProgram` which program an entry starts; every entry is always enabled, and a click runs
/// the entry's program. An entry without one runs what was set for an empty name; without that nothing
/// happens.
///
/// Parameters are words with blanks between them; single or double quotes hold blanks together, and a
/// backslash takes the next character as it is, but within single quotes. No shell reads them.
class RunApplicationDataSource : public DialogDataSource, public Utilities::Component {
public:
    void Invariant() const override {}
    virtual Diagnostics::String GetValueString() = 0;

    void SetValue(Utilities::String const& element, Utilities::String const& name,
                  Utilities::Anything const& value) override;
    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override;
    void SetCallback(Utilities::String const& element, Utilities::String const& name,
                     Utilities::Callback const& callback) override;
    Utilities::Callback GetCallback(Utilities::String const& element, Utilities::String const& name) override;

    /// Starts the program of that path, with the directory that it is in as its working directory. If it
    /// can't be started so, path and parameters are one command line, whose first word is looked for where
    /// the system looks for programs, as is a path without a directory at once. If that fails too, the user
    /// is told the reason of the first attempt, and the result is false. The program outlives this one.
    virtual bool Run(Utilities::String const& path, Utilities::String const& parameters) = 0;
    /// With the document's path as its one parameter, whatever is in it.
    virtual bool RunFile(Utilities::SmartPointer<Utilities::File> program,
                         Utilities::SmartPointer<Utilities::File> document) = 0;
    /// Starts a program whose place an installer has entered: `spec` is the text "section:key:file", and the
    /// directory is the value of that key in norvelian/programs.ini of the system's configuration (the first
    /// of $XDG_CONFIG_DIRS that has the file, /etc/xdg without it). False, and nothing is shown, if it isn't
    /// entered or can't be started.
    virtual bool RunRegistered(Utilities::Anything const& spec) = 0;

    /// For an entry by its element name; the empty name is for all others. An empty path takes it out.
    void SetProgram(Utilities::String const& element, Utilities::String const& path,
                    Utilities::String const& parameters);

protected:
    /// The argument is the entry's name, as menus give it; else the program of the empty name is run.
    long OnClick(Utilities::Anything const& element);

private:
    struct Program {
        Utilities::String path;
        Utilities::String parameters;
    };
    std::map<std::string, Program> programs_;
};

} // namespace GUI
