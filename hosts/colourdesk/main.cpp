#include "Diagnostics/Sink.h"
#include "Utilities/Plugin.h"
#include "Utilities/ProgramDirectory.h"
#include "hosts/colourdesk/ColourDesk.h"
#include "hosts/colourdesk/Version.h"

#include <cstdio>
#include <exception>

namespace {

int RunColourDesk(ColourDesk::Options const& options) {
    Utilities::Plugin plugin(Utilities::GetModulePath("NorvelianGui"));
    int result = 1;
    {
        ColourDesk::Application application(options);
        try {
            result = application.Execute();
        } catch (std::exception const& failure) {
            application.ReportError(failure.what());
        }
        application.Close();
        application.ReleaseImplementation();
    }
    plugin.PrepareForUnload();
    return result;
}

} // namespace

int main(int argc, char** argv) {
    try {
        // Nothing is dropped in silence here: what goes wrong while a window is built is told on standard
        // error.
        Diagnostics::SetSink(Diagnostics::StandardErrorSink());
        auto const options = ColourDesk::Options::Parse({argv + 1, argv + argc});
        if (options.help) {
            std::fputs(ColourDesk::Options::Usage(), stdout);
            return 0;
        }
        if (options.version) {
            std::printf("Colour Desk %s\n", ColourDesk::version);
            return 0;
        }
        return RunColourDesk(options);
    } catch (std::exception const& failure) {
        std::fprintf(stderr, "colourdesk: %s\n", failure.what());
        return 1;
    }
}
