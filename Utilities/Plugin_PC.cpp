#include "Utilities/Plugin.h"

#include "Diagnostics/Sink.h"
#include "Utilities/NamingService.h"
#include "Utilities/PluginFile_PC.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <exception>
#include <filesystem>
#include <link.h>
#include <map>

namespace Utilities {

using Norvelian::Utilities::Exceptions::ResourceException;
using Norvelian::Utilities::Exceptions::ResourceNotAvailableException;

namespace {

constexpr char const* unknownReason = "unknown reason";

[[noreturn]] void Refuse(std::string const& path, std::string const& reason) {
    throw ResourceNotAvailableException("The plug-in " + path + " can't be loaded: " + reason);
}

std::string LoaderReason() {
    char const* const reason = dlerror();
    return reason ? reason : unknownReason;
}

std::string Canonical(std::string const& path) {
    std::filesystem::path const given(path);
    if (!given.is_absolute()) Refuse('"' + path + '"', "its path isn't absolute");
    std::error_code failure;
    std::string canonical = std::filesystem::canonical(given, failure).string();
    if (failure) Refuse(path, failure.message());
    return canonical;
}

/// What is being loaded, for the message of a process that ends meanwhile.
std::array<char, 4096> loading{};

/// No exception can pass the loader: its locks would stay held and the module half initialised.
[[noreturn]] void NameTheCulprit() {
    std::fprintf(stderr, "The plug-in %s threw an exception while it was being loaded", loading.data());
    try {
        if (auto const thrown = std::current_exception()) std::rethrow_exception(thrown);
    } catch (std::exception const& failure) {
        std::fprintf(stderr, ": %s", failure.what());
    } catch (...) { // NOLINT(bugprone-empty-catch): has no text
    }
    std::fputc('\n', stderr);
    std::abort();
}

void* Load(std::string const& path) {
    path.copy(loading.data(), loading.size() - 1);
    loading[std::min(path.size(), loading.size() - 1)] = '\0';
    auto* const former = std::set_terminate(NameTheCulprit);
    // A symbol that is missing is an error now, and not the end of the process when it is first used.
    // An exception that passed the loader would leave its locks taken: it ends the process here at the
    // latest. The loader's header promises that it throws nothing, which a compiler would take for true.
    void* (*volatile const load)(char const*, int) = dlopen;
    void* const module = [&]() noexcept { return load(path.c_str(), RTLD_NOW | RTLD_LOCAL); }();
    std::set_terminate(former);
    return module;
}

bool IsFunction(void* symbol) {
    Dl_info information{};
    ElfW(Sym) const* entry = nullptr;
    return dladdr1(symbol, &information, reinterpret_cast<void**>(const_cast<ElfW(Sym)**>(&entry)),
                   RTLD_DL_SYMENT) != 0 &&
           entry && ELF64_ST_TYPE(entry->st_info) == STT_FUNC;
}

template <class Function> Function* As(void* symbol) { return reinterpret_cast<Function*>(symbol); }

constexpr char const* exportNames[] = {"PluginResolve", "PluginGetComponentDescriptors", "PluginCanUnloadDll",
                                       "PluginPrepareForUnload"};

} // namespace

Plugin::Plugin(std::string const& path) : path_(Canonical(path)) {
    CheckPluginFile(path_);
    module_ = Load(path_);
    if (!module_) Refuse(path_, LoaderReason());
    for (char const* const name : exportNames) {
        void* const symbol = dlsym(module_, name);
        std::string const reason = symbol ? std::string(name) + " is no function" : LoaderReason();
        if (symbol && IsFunction(symbol)) continue;
        dlclose(module_);
        Refuse(path_, reason);
    }
}

Plugin::~Plugin() {
    if (!module_) return;
    try {
        // What only a singleton holds goes with it.
        for (ComponentCreatorBase* const creator : GetCreators()) creator->PrepareForUnload();
        if (std::string const living = GetLiving(); living.empty())
            dlclose(module_);
        else
            Diagnostics::Report("Plugin", (path_ + " stays loaded; there still live: " + living).c_str());
    } catch (...) {
        Diagnostics::DropException("Plugin: unloading");
    }
}

void* Plugin::Find(char const* name) const {
    void* const symbol = module_ ? dlsym(module_, name) : nullptr;
    if (!symbol) throw ResourceNotAvailableException(path_ + " is not loaded");
    return symbol;
}

void Plugin::Resolve(String const& name, SmartPointer<Component>& result) const {
    As<void(String const&, SmartPointer<Component>&)>(Find(exportNames[0]))(name, result);
}
Plugin::Descriptors const* Plugin::GetComponentDescriptors() const {
    return As<Descriptors const*()>(Find(exportNames[1]))();
}
bool Plugin::CanUnload() const { return As<std::int32_t()>(Find(exportNames[2]))() == 1; }
void Plugin::PrepareForUnload() const { As<void()>(Find(exportNames[3]))(); }

/// A creator is a static object of its module.
std::vector<ComponentCreatorBase*> Plugin::GetCreators() const {
    std::vector<ComponentCreatorBase*> creators;
    for (ComponentCreatorBase* const creator : NamingService::Instance()->GetCreators()) {
        Dl_info information{};
        link_map* module = nullptr;
        if (dladdr1(creator, &information, reinterpret_cast<void**>(&module), RTLD_DL_LINKMAP) != 0 &&
            module == module_)
            creators.push_back(creator);
    }
    return creators;
}

std::string Plugin::GetLiving() const {
    // Creators of the same class count the same objects.
    std::map<std::string, long> living;
    for (ComponentCreatorBase* const creator : GetCreators())
        if (long const count = creator->GetLivingCount(); count > 0)
            living[creator->GetDescriptor().at("name").GetString().GetStdString()] = count;
    std::string text;
    for (auto const& [name, count] : living)
        text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + name;
    return text;
}

bool Plugin::Unload() {
    PrepareForUnload();
    for (ComponentCreatorBase* const creator : GetCreators()) creator->PrepareForUnload();
    if (std::string const living = GetLiving(); !living.empty())
        throw ResourceException("The plug-in " + path_ + " can't be unloaded; there still live: " + living);
    if (!CanUnload()) return false;
    dlclose(module_);
    module_ = nullptr;
    void* const stillThere = dlopen(path_.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (stillThere) dlclose(stillThere);
    return !stillThere;
}

} // namespace Utilities
