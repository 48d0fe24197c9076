#include "Diagnostics/Sink.h"
#include "Utilities/ElfFile_PC.h"
#include "Utilities/LanguageServiceInterface.h"
#include "Utilities/PluginInterface.h"
#include "core/creators/ComponentCreator.h"
#include "services/information/DistributionPackage_PC.h"
#include "services/information/InformationServices_PC.h"
#include "services/information/PackageNote.h"

#include <filesystem>

namespace InformationServices {

using Utilities::ElfFile;
using Utilities::String;

namespace {

Utilities::ComponentCreatorNormal<DllInformationImplementation_PC> const
    dllCreator({"DllInformationImplementation", "$Revision: 1.5 $", "InformationServices"});
/// The note in which packages of any distribution tell what a file belongs to; it isn't in older headers.
constexpr std::uint32_t packageNote = 0xcafe1a7e;

constexpr char const* keys[] = {"Version",        "CompanyName",      "LegalCopyRight",  "ProductName",
                                "ProductVersion", "OriginalFileName", "FileDescription", "FileVersion",
                                "InternalName",   "Comments"};

String Translate(char const* key) { return Utilities::LanguageServiceInterface::GetTranslation(key); }

std::string InHexadecimal(std::string_view bytes) {
    std::string text;
    for (char const byte : bytes) {
        auto const value = static_cast<unsigned char>(byte);
        text += "0123456789abcdef"[value / 16];
        text += "0123456789abcdef"[value % 16];
    }
    return text;
}

/// The map's entries are made in the translations of their keys.
class Facts {
public:
    Facts() {
        for (char const* const key : keys) (*map_)[Translate(key)] = Translate("Unknown");
    }
    void Set(char const* key, std::string const& value) {
        if (!value.empty()) (*map_)[Translate(key)] = String(value);
    }
    Information const& Get() const { return map_; }

private:
    Information map_ = Utilities::MakeSmart<Utilities::Map<String, String>>();
};

void TellOfPackage(Facts& facts, ElfFile const& file, std::string const& path) {
    std::string product;
    if (auto const note = file.FindNote("FDO", packageNote)) {
        facts.Set("ProductName", FindInPackageNote(*note, "name"));
        product = FindInPackageNote(*note, "version");
    } else if (auto const package = DistributionPackage::FindOwner(path)) {
        facts.Set("ProductName", package->name);
        facts.Set("CompanyName", package->maintainer);
        facts.Set("FileDescription", package->description);
        product = package->version;
    }
    facts.Set("ProductVersion", product);
    facts.Set("Version", product);
}

void TellOfFile(Facts& facts, std::string const& name) {
    std::string const path = std::filesystem::canonical(name).string();
    ElfFile const file(path);
    std::string const fileName = std::filesystem::path(path).filename().string();
    facts.Set("OriginalFileName", fileName);
    facts.Set("InternalName", file.GetLinkName());
    constexpr std::string_view mark = ".so.";
    if (auto const at = fileName.find(mark); at != std::string::npos) {
        facts.Set("FileVersion", fileName.substr(at + mark.size()));
        facts.Set("Version", fileName.substr(at + mark.size()));
    }
    if (auto const build = file.FindNote("GNU", NT_GNU_BUILD_ID))
        facts.Set("Comments", "Build id " + InHexadecimal(*build));
    using PluginNote = Utilities::PluginInterfaceNote;
    if (file.FindNote(PluginNote::owner, PluginNote::typeOfInterface)) facts.Set("Plugin", "Yes");
    TellOfPackage(facts, file, path);
}

} // namespace

Information DllInformationImplementation_PC::GetInformation() {
    Facts facts;
    try {
        TellOfFile(facts, fileName_.GetStdString());
    } catch (...) {
        Diagnostics::DropException("DllInformationImplementation::GetInformation");
    }
    return facts.Get();
}

String DllInformationImplementation_PC::GetDescription(bool allKeys) {
    auto const information = GetInformation();
    String text = String(GetValueString().GetCharPointer()) + fileName_;
    if (allKeys) return text + DescribePairs(information);
    text += ": ";
    auto const valueOf = [&information](String const& key) {
        String const* const value = information->FindValue(key);
        return value ? *value : String();
    };
    if (valueOf(Translate("Plugin")) == "Yes") text += "Plugin, ";
    String const key = Translate("ProductVersion");
    return text + ", " + key + " = " + valueOf(key);
}

String DescribePairs(Information const& information) {
    String text;
    for (auto pair = information->Begin(); pair.IsValid(); ++pair)
        text += String("\n  ") + pair.GetKey() + " : " +
                Utilities::LanguageServiceInterface::GetTranslation(pair.GetValue());
    return text;
}

} // namespace InformationServices
