// Modules that aren't plug-ins, each by one fault. All of them leave a mark when any of their code runs.
#include "Utilities/PluginInterface.h"

#include <cstdlib>
#include <stdexcept>

namespace {

#if defined(OTHER_INTERFACE)
/// As an older tree would have made it.
struct OlderNote {
    unsigned ownerSize = 10;
    unsigned textSize = sizeof "interface 1, strings 1";
    unsigned type = 1;
    char owner[12] = "Norvelian";
    char text[24] = "interface 1, strings 1";
};
[[gnu::section(".note.norvelian"), gnu::used, gnu::aligned(4)]] constexpr OlderNote note;
#elif !defined(NO_NOTE)
NORVELIAN_PLUGIN_INTERFACE_NOTE;
#endif

struct Mark {
    Mark() {
        ::setenv("BAD_MODULE_RAN", "yes", 1);
#if defined(THROWING)
        throw std::runtime_error("on purpose");
#endif
    }
} const mark;

} // namespace

extern "C" {
#if !defined(NO_EXPORTS)
void PluginResolve() {}
void PluginGetComponentDescriptors() {}
void PluginPrepareForUnload() {}
#if defined(DATA_EXPORT)
int PluginCanUnloadDll = 1;
#else
int PluginCanUnloadDll() { return 1; }
#endif
#endif
#if defined(MISSING_SYMBOL)
void NobodyHasThis();
void NeverCalled() { NobodyHasThis(); }
#endif
}
