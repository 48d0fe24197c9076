// The pictures of the documentation are what the program draws now.
#include "tests/support/TemporaryDirectory.h"

#include <QImage>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

using Names = std::set<std::string>;

Names NamesIn(std::filesystem::path const& directory) {
    Names names;
    for (auto const& file : std::filesystem::directory_iterator(directory))
        names.insert(file.path().filename().string());
    return names;
}

/// How many pixels of a thousand are clearly another colour; all of them for another size. Another version of
/// the font's rasteriser moves the edges of letters a little, which doesn't count.
double DifferentPerThousand(QImage const& drawn, QImage const& known) {
    constexpr int clearly = 48;
    if (drawn.size() != known.size()) return 1000;
    int different = 0;
    for (int y = 0; y < known.height(); ++y)
        for (int x = 0; x < known.width(); ++x) {
            QRgb const a = drawn.pixel(x, y);
            QRgb const b = known.pixel(x, y);
            int const most = std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                                       std::abs(qBlue(a) - qBlue(b))});
            if (most > clearly) ++different;
        }
    return 1000.0 * different / std::max(1, known.width() * known.height());
}

} // namespace

TEST(Gallery, IsDrawnAsTheDocumentationShowsIt) {
    constexpr double mostDifferent = 8;
    Tests::TemporaryDirectory const settings;
    std::filesystem::remove_all(DRAWN);
    std::string const command =
        "XDG_RUNTIME_DIR=" + settings.GetPath() + " XDG_CONFIG_HOME=" + settings.GetPath() +
        " LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen " COLOURDESK " --language English --gallery " DRAWN;
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(NamesIn(DRAWN), NamesIn(KNOWN)) << "copy " << DRAWN << " to " << KNOWN;
    for (std::string const& name : NamesIn(KNOWN)) {
        QImage const drawn(QString::fromStdString(DRAWN "/" + name));
        QImage const known(QString::fromStdString(KNOWN "/" + name));
        ASSERT_FALSE(known.isNull()) << name;
        EXPECT_LE(DifferentPerThousand(drawn, known), mostDifferent)
            << name << ": if it is meant so, copy it from " << DRAWN;
    }
}
