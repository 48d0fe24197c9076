// Loops inside loops, with any counts, counters and formulas: what they make stays within the limits.
#include "fuzz/ElementFuzz.h"

namespace {

using Node = Utilities::SmartPointer<GUI::DescriptionTree>;

void AddChildren(GUI::DescriptionTree& parent, Fuzz::Choices& choices, int depth) {
    for (auto count = 1 + choices.Below(3); count > 0; --count) {
        Node const node = Utilities::MakeSmart<GUI::DescriptionTree>();
        bool const isLoop = choices.Byte() % 4 != 0;
        (*node)["GUIElementType"] = isLoop ? "LoopBox" : choices.Byte() % 2 == 0 ? "HBox" : "Pane";
        (*node)["ElementName"] =
            (choices.Byte() % 2 == 0 ? "LOOPBOX_CALC(" + choices.Text() + ")" : choices.Text()).c_str();
        if (isLoop) {
            char const* const counts[] = {"",     "1",  "2",         "3", "10", "#", "LOOPBOX_CALC(#,2,*)",
                                          "1000", "-1", "4294967295"};
            (*node)["Repetitions"] = counts[choices.Below(std::size(counts))];
            (*node)["CounterVariable"] = choices.Byte() % 2 == 0 ? "#" : choices.Text().c_str();
            (*node)["Base"] = choices.Byte() % 4 == 0 ? counts[choices.Below(std::size(counts))] : "0";
        }
        parent.AddChild(node);
        if (depth < 4 && choices.Byte() % 2 == 0) AddChildren(*node, choices, depth + 1);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    Fuzz::SetLimits();
    Fuzz::Choices choices(data, size);
    {
        TestSupport::FakeWindowHost host;
        Fuzz::RandomSource source(choices);
        Node const root = Utilities::MakeSmart<GUI::DescriptionTree>();
        (*root)["GUIElementType"] = "VBox";
        AddChildren(*root, choices, 0);
        Utilities::SmartPointer<GUI::GUIElement> window;
        Fuzz::Try([&] { window = host.Create(root, &source); });
        // The root is the host's own and isn't asked about.
        Fuzz::Require(GUI::GUIElement::GetLivingCount() <= Utilities::Limits::Get().elements + 1,
                      "the limit holds");
        if (!window.IsNull()) Fuzz::Try([&] { window->SetSize(100, 100); });
        Fuzz::Try([&] { window = nullptr; });
    }
    Fuzz::RequireNothingLeft();
    return 0;
}
