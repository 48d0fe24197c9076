#include "Diagnostics/Sink.h"
#include "Utilities/Limits.h"
#include "core/base/Exceptions.h"
#include "cxf/conditions/NVSpectrum.h"
#include "inspection/PropertyContent.h"

#include <chrono>
#include <gtest/gtest.h>
#include <string>

namespace {

using GUI::PropertyContent;
using GUI::TreeViewNode;
using Utilities::Anything;
using Utilities::String;

/// The tree on one line: "Root(Child: 1, Other(x))".
std::string Written(TreeViewNode const& node) {
    std::string text = node.GetText().GetStdString();
    std::string children;
    for (TreeViewNode const& child : node) children += (children.empty() ? "" : ", ") + Written(child);
    return children.empty() ? text : text + "(" + children + ")";
}
std::string Built(Anything const& content) {
    auto const root = PropertyContent().BuildTree(content);
    return root.IsNull() ? "null" : Written(*root);
}
std::string Built(Anything::MapOfAnythings const& content) { return Built(Anything(content)); }

TEST(PropertyContent, IsShownAsATree) {
    PropertyContent helper;
    EXPECT_EQ(Built(helper.GetContent()), "null");
    helper.AddString("Patch/Name", "a/b");
    helper.AddLong("Patch/Place/Row", -7);
    helper.AddShort("Patch/Place/Column", 3);
    helper.AddBool("Patch/Selected", true);
    helper.AddDouble("Patch/Place/X", 0.5);
    helper.AddPath("Patch/Empty");
    helper.AddString("Patch/Name", "again");
    EXPECT_EQ(Built(helper.GetContent()),
              "Patch(Name: a/b: again, Place(Row: -7, Column: 3, X: 0.50000), Selected: true, Empty)");
    helper.Clear();
    EXPECT_EQ(Built(helper.GetContent()), "null");
    EXPECT_EQ(Built(Anything()), "No Information from element supporting PI");
}

TEST(PropertyContent, FaultsAreTextInTheTree) {
    Diagnostics::Sink const former = Diagnostics::SetSink({});
    Anything::MapOfAnythings content;
    content["0"] = "s/Root/A";
    content["1"] = "l/Root/B";
    content["v1"] = "no number";
    content["2"] = "q/Root/C";
    content["v2"] = 1L;
    content["4"] = "e/Root/behind a gap";
    EXPECT_EQ(Built(content), "Root(A: There must be a value entry., B: There must be a value entry., C)");
    content["3"] = "e/Other/D";
    EXPECT_EQ(
        Built(content),
        "Error in Content Anything(A: There must be a value entry., B: There must be a value entry., C)");
    content["0"] = 5L;
    EXPECT_EQ(Built(content), "Error in Content Anything");
    std::string deep = "e/Root";
    for (int i = 0; i < 5000; ++i) deep += "/d";
    Anything::MapOfAnythings bottomless;
    bottomless["0"] = deep.c_str();
    EXPECT_NE(Built(bottomless).find("(the limit \"depth\")"), std::string::npos);
    EXPECT_EQ(Built(Anything("text")), "No Information from element supporting PI");
    Diagnostics::SetSink(former);
}

TEST(PropertyContent, MergesUnderOneRoot) {
    PropertyContent other;
    other.AddString("Sample/Name", "x");
    other.AddLong("Sample/Number", 2);
    PropertyContent helper;
    helper.Merge(Anything());
    helper.Merge(other.GetContent());
    EXPECT_EQ(Built(helper.GetContent()), "Sample(Name: x, Number: 2)");
    helper.Merge(other.GetContent());
    EXPECT_EQ(Built(helper.GetContent()), "Sample(Name: x: x, Number: 2: 2)") << "the same root";

    PropertyContent patch;
    patch.AddPath("Patch");
    EXPECT_THROW(patch.Merge(other.GetContent()), Norvelian::Utilities::Exceptions::OutOfRangeException);
    patch.AddBool("Patch/On", false);
    patch.Merge(other.GetContent());
    EXPECT_EQ(Built(patch.GetContent()), "Patch(On: false, Sample(Name: x, Number: 2))");
}

TEST(PropertyContent, ASpectrumHasItsConditionsAndValues) {
    Norvelian::Tristim::NVMeasureConditions conditions;
    conditions.SetMeasureCondition("Physical.Filter", "Polarizer");
    std::vector<float> values(36, 0.25F);
    values.front() = 0.125F;
    PropertyContent helper;
    helper.AddSpectrum("Spectrum", Norvelian::Tristim::NVSpectrum(values, conditions));
    std::string const tree = Built(helper.GetContent());
    EXPECT_EQ(
        tree.find(
            "Spectrum(Lambda Min: 380 nm, Lambda Max: 730 nm, Resolution:  10 nm, SpectrumType: Remission, "
            "DataPoints(380 nm: 0.12500, 390 nm: 0.25000, "),
        0U)
        << tree;
    EXPECT_TRUE(tree.ends_with("730 nm: 0.25000), Filter: Polarizer)")) << tree;
}

} // namespace
