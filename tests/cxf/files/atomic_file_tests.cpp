#include "Utilities/AtomicFile.h"
#include "tests/cxf/support.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;
using Norvelian::Utilities::Exceptions::ResourceException;
using Utilities::WriteFileAtomically;

namespace {

class AtomicFile : public testing::Test {
protected:
    AtomicFile() { fs::create_directories(directory_); }
    ~AtomicFile() override {
        fs::permissions(directory_, fs::perms::owner_all);
        fs::remove_all(directory_);
    }
    static std::string Contents(fs::path const& path) {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }
    std::size_t Files() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(directory_), fs::directory_iterator()));
    }

    fs::path const directory_ =
        fs::temp_directory_path() /
        ("atomic_file_tests." + std::to_string(testing::UnitTest::GetInstance()->random_seed()) + "." +
         testing::UnitTest::GetInstance()->current_test_info()->name());
};

} // namespace

TEST_F(AtomicFile, WritesReplacesAndLeavesNothingBehind) {
    fs::path const path = directory_ / "file";
    std::string const text("bytes\0\r\n\xFF", 9);
    WriteFileAtomically(path.string(), text);
    EXPECT_EQ(Contents(path), text);
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    WriteFileAtomically(path.string(), "");
    EXPECT_EQ(Contents(path), "");
    EXPECT_EQ(fs::status(path).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    EXPECT_EQ(Files(), 1U);
}

TEST_F(AtomicFile, ALinkStaysALink) {
    fs::path const target = directory_ / "target";
    fs::path const link = directory_ / "link";
    WriteFileAtomically(target.string(), "old");
    fs::create_symlink(target, link);
    WriteFileAtomically(link.string(), "new");
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(Contents(target), "new");
}

TEST_F(AtomicFile, AFailureNamesTheFileAndKeepsTheOldContents) {
    EXPECT_THROW(WriteFileAtomically((directory_ / "no" / "file").string(), "x"), ResourceException);
    // A directory is in the way: the rename fails after everything was written.
    fs::path const inTheWay = directory_ / "taken";
    fs::create_directory(inTheWay);
    std::string const message =
        CxfTest::MessageOf<ResourceException>([&] { WriteFileAtomically(inTheWay.string(), "x"); });
    EXPECT_TRUE(message.starts_with(inTheWay.string() + ": can't replace it: ")) << message;
    EXPECT_EQ(Files(), 1U) << "the temporary file is gone";
}

TEST_F(AtomicFile, SampleFilesGoThroughIt) {
    fs::path const path = directory_ / "samples.xml";
    auto const sets = CxfTest::Cxf::ReadSampleSets(SHIPPED_DATA "samples/cie_named_34_36band.txt");
    CxfTest::Cxf::WriteSampleSets(path.string(), sets, CxfTest::Cxf::FormatOf(path.string()));
    EXPECT_TRUE(Contents(path).starts_with("<?xml"));
    EXPECT_EQ(CxfTest::Cxf::ReadSampleSet(path.string())->GetSamples().size(), 34U);
    EXPECT_EQ(CxfTest::Cxf::FormatOf("a.txt"), CxfTest::Cxf::SampleFormat::Cgats);
    std::string const nowhere = (directory_ / "no" / "x").string();
    EXPECT_EQ(CxfTest::MessageOf<CxfTest::Cxf::FileException>(
                  [&] { CxfTest::Cxf::WriteSampleSets(nowhere, sets, CxfTest::Cxf::SampleFormat::Xml); }),
              nowhere + ": can't make a temporary file beside it: No such file or directory");
}
