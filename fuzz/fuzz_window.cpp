// A window from a description: any text that can be read is made, laid out, painted, clicked and updated with
// a data source that answers anything. The data come behind the first zero byte.
#include "fuzz/ElementFuzz.h"
#include "gui/elements/description/GUIDescriptionReader.h"

#include <algorithm>
#include <functional>

namespace {

void ForEachPane(GUI::GUIElement& element, std::function<void(GUI::Pane&)> const& call, int depth = 0) {
    constexpr int deepest = 20;
    if (depth > deepest) return;
    if (auto* const pane = dynamic_cast<GUI::Pane*>(&element)) call(*pane);
    for (auto it = element.GetChildrenList().Begin(); it.IsValid(); ++it) {
        auto const child = it.Current();
        ForEachPane(*child, call, depth + 1);
    }
}

void Run(std::string const& text, Fuzz::Choices& choices) {
    TestSupport::FakeWindowHost host;
    Fuzz::RandomSource source(choices);
    Utilities::SmartPointer<GUI::GUIElement> root;
    Fuzz::Try([&] {
        root = host.Create(
            Utilities::MakeSmart<GUI::DescriptionTree>(GUI::GUIDescriptionReader::Parse(text, "fuzz")),
            &source);
    });
    if (root.IsNull()) return;
    Fuzz::Try([&] {
        root->SetPosition(0, 0);
        root->SetSize(choices.Byte() * 8UL, choices.Byte() * 8UL);
    });
    for (int round = 0; round < 2; ++round) {
        Fuzz::Try([&] { root->OnUpdate(choices.Answer()); });
        ForEachPane(*root, [&](GUI::Pane& pane) {
            Fuzz::Try([&] {
                TestSupport::RecordingDeviceContext context;
                host.Paint(pane, context);
            });
            Fuzz::Try([&] { host.Click(pane, choices.Byte(), choices.Byte()); });
            Fuzz::Try([&] { host.GetToolTip(pane, choices.Byte(), choices.Byte()); });
        });
    }
    Fuzz::Try([&] { root = nullptr; });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    Fuzz::SetLimits();
    auto const* const split = std::find(data, data + size, 0);
    auto const length = static_cast<std::size_t>(split - data);
    Fuzz::Choices choices(data + std::min(length + 1, size), size - std::min(length + 1, size));
    Run(std::string(reinterpret_cast<char const*>(data), length), choices);
    Fuzz::RequireNothingLeft();
    return 0;
}
