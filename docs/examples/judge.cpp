// The example of docs/writing-a-host.md: judges the samples of a file against references.
#include "cxf/tolerance/Judge.h"
#include "core/base/Exceptions.h"
#include "cxf/files/SampleFile.h"
#include "cxf/tolerance/ToleranceFile.h"

#include <cstdio>

namespace Cxf = Norvelian::ColorExchangeFormat;

int main(int count, char** arguments) try {
    if (count != 4) {
        std::fputs("usage: judge TOLERANCES REFERENCES SAMPLES\n", stderr);
        return 2;
    }
    auto const tolerance = Cxf::ReadToleranceSet(arguments[1]);
    auto const references = Cxf::ReadSampleSet(arguments[2]);
    auto const samples = Cxf::ReadSampleSet(arguments[3]);
    for (auto const& [sample, reference, verdict] : Cxf::JudgeAll(tolerance, *references, *samples))
        std::printf("%s: %s, %s\n", sample->GetName().c_str(), NameOf(verdict.judgement),
                    verdict.reason.c_str());
    return 0;
} catch (Norvelian::Utilities::Exceptions::TraceableException const& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
}
