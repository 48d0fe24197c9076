#include "Utilities/Plugin.h"

#include <dlfcn.h>

namespace Utilities {

using Norvelian::Utilities::Exceptions::ResourceNotAvailableException;

namespace {

std::string LoaderReason() {
    char const* const reason = dlerror();
    return reason ? reason : "unknown reason";
}

template <class Function> Function* As(void* symbol) { return reinterpret_cast<Function*>(symbol); }

constexpr char const* exportNames[] = {"PluginResolve", "PluginGetComponentDescriptors", "PluginCanUnloadDll",
                                       "PluginPrepareForUnload"};

} // namespace

Plugin::Plugin(std::string const& path) : path_(path), module_(dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL)) {
    if (!module_) throw ResourceNotAvailableException("The plug-in can't be loaded: " + LoaderReason());
    for (char const* const name : exportNames) {
        if (dlsym(module_, name)) continue;
        std::string const reason = LoaderReason();
        dlclose(module_);
        throw ResourceNotAvailableException(std::string(path).append(" is not a plug-in: ").append(reason));
    }
}

Plugin::~Plugin() {
    if (module_) dlclose(module_);
}

void* Plugin::Find(char const* name) const {
    void* const symbol = module_ ? dlsym(module_, name) : nullptr;
    if (!symbol) throw ResourceNotAvailableException(path_ + " is not loaded");
    return symbol;
}

void Plugin::Resolve(String const& name, SmartPointer<Component>& result) const {
    As<void(String const&, SmartPointer<Component>&)>(Find(exportNames[0]))(name, result);
}
void const* Plugin::GetComponentDescriptors() const { return As<void const*()>(Find(exportNames[1]))(); }
bool Plugin::CanUnload() const { return As<std::int32_t()>(Find(exportNames[2]))() == 1; }
void Plugin::PrepareForUnload() const { As<void()>(Find(exportNames[3]))(); }

bool Plugin::Unload() {
    PrepareForUnload();
    if (!CanUnload()) return false;
    dlclose(module_);
    module_ = nullptr;
    void* const stillThere = dlopen(path_.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (stillThere) dlclose(stillThere);
    return !stillThere;
}

} // namespace Utilities
