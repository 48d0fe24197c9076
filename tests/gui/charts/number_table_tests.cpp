// What charts and colour elements give to other programs.
#include "gui/elements/NumberTable.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using Utilities::Anything;

Anything Row(std::initializer_list<Anything> entries) {
    Anything::VectorOfAnythings row(static_cast<std::uint32_t>(entries.size()));
    std::copy(entries.begin(), entries.end(), row.begin());
    return {row};
}

struct NumberTables : testing::Test {
    FakeWindowHost host;
    FakeDataSource source;
    /// Of an element "E" after an update.
    std::string Of(char const* type, char const* message) {
        auto const element = host.Create(
            Node({{"GUIElementType", type}, {"ElementName", "E"}, {"BackgroundColor", "1,2,3"}}), &source);
        element->OnUpdate(message);
        return GUI::NumberTableOf(*element).GetStdString();
    }
};

TEST_F(NumberTables, AreThoseThatAreShown) {
    source.values[{"XYGraph", "ValueBegin"}] = "380";
    source.values[{"XYGraph", "ValueStep"}] = "10";
    source.values[{"XYGraph", "1"}] = Row({"a\tb", "0.1", "-0.25", std::nan("")});
    source.values[{"XYGraph", "2"}] = Row({"c", 1e-7});
    EXPECT_EQ(Of("XYChart", "1;1-1;2"), "\ta b\tc\n380\t0.1\t1e-07\n390\t-0.25\t\n400\t\t\n");
    source.values[{"BarGraph", "1"}] = Row({"dE", 2.5, Anything()});
    EXPECT_EQ(Of("BarChart", "1;1-2;1"), "\tdE\n0\t2.5\n1\t\n");
    source.values[{"E", "1"}] = Row({"red", 50.0, "60.5", -1.0});
    EXPECT_EQ(Of("LabChart", "2;1-2;1"), "CIELab\nred\t50\t60.5\t-1\n");
    source.values[{"E", "NrOfPatches"}] = 1L;
    source.values[{"Patch0", "Data"}] = Anything::MapOfAnythings();
    EXPECT_EQ(Of("XYColorChart", ""), "x\ty\tR\tG\tB\n0\t0\t100\t100\t100\n");
    EXPECT_EQ(Of("Patch", ""), "R\tG\tB\n0\t0\t0\n");
    EXPECT_EQ(Of("ColorWheel", "").substr(0, 20), "\tR\tG\tB\n0\t100\t100\t100");
    EXPECT_EQ(Of("Pane", ""), "");
}

} // namespace
