#include "core/base/Exceptions.h"
#include "cxf/files/SampleFile.h"
#include "cxf/verification/Verification.h"

#include <cstring>
#include <iostream>
#include <string>

namespace {

constexpr char const* kUsage =
    "usage: cxfcheck                     prints every published reference beside the library's number\n"
    "       cxfcheck [--strict] FILE...  prints what a reader makes of each file of samples, by line\n"
    "\n"
    "  --strict   whatever a file doesn't state itself is an error\n"
    "\n"
    "Exit status: 0, 1 for a missed reference or a file that can't be read, 2 for wrong arguments.\n";

bool CheckFile(std::string const& path, bool strict) {
    namespace Cxf = Norvelian::ColorExchangeFormat;
    Cxf::ReadReport report;
    Cxf::ReadOptions options;
    options.allowExtrapolation = true;
    options.strict = strict;
    options.report = &report;
    bool read = true;
    std::string failure;
    try {
        Cxf::ReadSampleSets(path, options);
    } catch (Norvelian::Utilities::Exceptions::ResourceException const& exception) {
        read = false;
        failure = exception.what();
    }
    for (Cxf::ReadNote const& note : report.GetNotes()) {
        std::cout << path << ':';
        if (note.line) std::cout << note.line << ':';
        std::cout << ' ' << Cxf::ReadReport::NameOf(note.kind) << ": " << note.text << '\n';
    }
    std::cout.flush();
    if (!read) std::cerr << failure << '\n';
    return read;
}

} // namespace

int main(int count, char** arguments) {
    bool strict = false;
    bool files = false;
    bool good = true;
    for (int i = 1; i < count; ++i)
        if (std::strcmp(arguments[i], "--strict") == 0) strict = true;
    for (int i = 1; i < count; ++i) {
        std::string const argument = arguments[i];
        if (argument == "--strict") continue;
        if (argument == "--help" || argument == "-h") {
            std::cout << kUsage;
            return 0;
        }
        if (argument.starts_with("-")) {
            std::cerr << "there is no option " << argument << '\n' << kUsage;
            return 2;
        }
        files = true;
        good = CheckFile(argument, strict) && good;
    }
    if (strict && !files) {
        std::cerr << "--strict needs a file\n" << kUsage;
        return 2;
    }
    if (files) return good ? 0 : 1;
    return Norvelian::Tristim::PrintVerification(std::cout) ? 0 : 1;
}
