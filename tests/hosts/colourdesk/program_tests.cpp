// Colour Desk as a user starts it: pictures, and one clear message for each kind of bad file.
#include "tests/support/TemporaryDirectory.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>

namespace {

struct Outcome {
    int status = -1;
    std::string output;
};

Outcome StartProgram(std::string const& arguments) {
    // The platform remarks on a runtime directory that is missing or open to others.
    Tests::TemporaryDirectory const runtime;
    std::string const command =
        "XDG_RUNTIME_DIR=" + runtime.GetPath() + " LC_ALL=C.UTF-8 " + COLOURDESK + " " + arguments + " 2>&1";
    Outcome outcome;
    FILE* const pipe = ::popen(command.c_str(), "r");
    std::array<char, 4096> buffer{};
    for (std::size_t read = 0; (read = std::fread(buffer.data(), 1, buffer.size(), pipe)) != 0;)
        outcome.output.append(buffer.data(), read);
    int const status = ::pclose(pipe);
    outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
    return outcome;
}

} // namespace

TEST(ColourDeskProgram, WritesItsWindowsPicture) {
    Tests::TemporaryDirectory const directory;
    Outcome const outcome = StartProgram("--screenshot " + (directory / "out.png"));
    EXPECT_EQ(outcome.status, 0) << outcome.output;
    EXPECT_EQ(outcome.output, "") << "nothing was dropped on the way";
    EXPECT_EQ(Tests::ReadFile(directory / "out.png").substr(1, 3), "PNG");
}

TEST(ColourDeskProgram, WritesAReport) {
    Tests::TemporaryDirectory const directory;
    Outcome const outcome = StartProgram("--report " + (directory / "out.pdf"));
    EXPECT_EQ(outcome.status, 0) << outcome.output;
    EXPECT_EQ(outcome.output, "");
    std::string const written = Tests::ReadFile(directory / "out.pdf");
    EXPECT_EQ(written.substr(0, 4), "%PDF");
    EXPECT_NE(written.find("/Count 2"), std::string::npos) << "34 samples with charts take two pages";
    EXPECT_EQ(StartProgram("--report " + (directory / "missing/out.pdf")).status, 1);
}

TEST(ColourDeskProgram, SaysOnceAndClearlyWhyAFileIsRefused) {
    Tests::TemporaryDirectory const directory;
    std::string const good = Tests::ReadFile(BUNDLED_FILE);
    Tests::WriteFile(directory / "empty.txt", "");
    Tests::WriteFile(directory / "truncated.txt", good.substr(0, good.size() / 2));
    Tests::WriteFile(directory / "binary.txt", std::string("\x7f"
                                                           "ELF\0\1\2",
                                                           7));
    Tests::WriteFile(directory / "nospectra.txt",
                     "CGATS.17\nNUMBER_OF_FIELDS 2\nBEGIN_DATA_FORMAT\nSAMPLE_ID LAB_L\n"
                     "END_DATA_FORMAT\nNUMBER_OF_SETS 1\nBEGIN_DATA\n1 50\nEND_DATA\n");
    struct Row {
        char const* file;
        bool hasLine;
    };
    for (Row const& row : {Row{"missing.txt", false}, Row{"empty.txt", true}, Row{"truncated.txt", true},
                           Row{"binary.txt", true}, Row{"nospectra.txt", true}}) {
        std::string const file = directory / row.file;
        Outcome const outcome = StartProgram("--screenshot " + (directory / "out.png") + " " + file);
        EXPECT_EQ(outcome.status, 1) << row.file << ": " << outcome.output;
        EXPECT_EQ(outcome.output.find("colourdesk: " + file + ":"), 0U) << outcome.output;
        EXPECT_EQ(std::count(outcome.output.begin(), outcome.output.end(), '\n'), 1) << outcome.output;
        if (row.hasLine) {
            std::size_t const place = ("colourdesk: " + file + ":").size();
            EXPECT_TRUE(std::isdigit(static_cast<unsigned char>(outcome.output[place]))) << outcome.output;
        }
    }
}
