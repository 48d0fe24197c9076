#pragma once

#include "Diagnostics/String.h"
#include "Utilities/Tools/Map.h"
#include "Utilities/Tools/SmartPointer.h"
#include "core/base/String.h"
#include "core/component/Component.h"

/// What a host tells about the machine it runs on: in an information dialog, and to support. Four components
/// of the category "InformationServices", each made anew on request. Every answer is a new map of texts, or
/// one text. GUI thread only.
namespace InformationServices {

using Information = Utilities::SmartPointer<Utilities::Map<Utilities::String, Utilities::String>>;

/// What a module, a shared library or a program, says about itself.
///
/// The keys of the map are the translations of "Version", "CompanyName", "LegalCopyRight", "ProductName",
/// "ProductVersion", "OriginalFileName", "FileDescription", "FileVersion", "InternalName" and "Comments";
/// what can't be told is the translation of "Unknown". A plug-in of this system has "Plugin" too, with "Yes".
///
/// Of an ELF file: "InternalName" is the name that it is linked by, "OriginalFileName" that of the file at
/// the end of all links, "FileVersion" what stands behind ".so." there, "Comments" its build id. Name and
/// version of the product are those of the package: of the note in the file, else of the distribution's
/// package that the file is in, which also gives company (the maintainer) and description. "Version" is the
/// product's, else the file's.
class DllInformationImplementation : public Utilities::Component {
public:
    virtual Diagnostics::String GetValueString() = 0;
    /// The class's name and the file's; with `allKeys` a line for each pair of the map, else the version of
    /// the product.
    virtual Utilities::String GetDescription(bool allKeys) = 0;
    virtual Information GetInformation() = 0;
    /// The file that is asked about. A file that can't be read gives the ten keys, all unknown.
    virtual void SetFileName(Utilities::String const& path) = 0;
};

/// The modules that are loaded in the process.
class LoadedModulNamesImplementation : public Utilities::Component {
public:
    virtual Diagnostics::String GetValueString() = 0;
    /// The full path by the file's name; of two modules of one name the one that was loaded last.
    virtual Information GetModules() = 0;
};

/// The operating system and the desktop.
///
/// "OS" (the distribution's name with its version), "ServicePack" (the version of its last update where it
/// tells one), "Build" (the kernel's release), and, if they are known, "Machine", "SessionType" (x11,
/// wayland), "Desktop", "Toolkit", "Screen" (size, scale) and "DisplayProfile".
class OperatingSystemInformationImplementation : public Utilities::Component {
public:
    virtual Diagnostics::String GetValueString() = 0;
    /// With `allKeys` the class's name and a line for each pair of the map, else the three of the system on
    /// one line.
    virtual Utilities::String GetDescription(bool allKeys) = 0;
    virtual Information GetInformation() = 0;
};

/// The places of a few files of the system.
class SystemFileNameImplementation : public Utilities::Component {
public:
    virtual Diagnostics::String GetValueString() = 0;
    /// "WindowsFolder": /usr. "SystemFolder": the directory of the system's libraries. "DorvexDriver": the
    /// instrument's kernel module, of the running kernel, or the udev rule that stands for it; empty if there
    /// is none. Empty for any other key.
    virtual Utilities::String GetFileName(Utilities::String const& key) = 0;
};

} // namespace InformationServices
