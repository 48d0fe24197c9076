// Sequences of calls of one element, of any component and with any attributes, by a host whose data source
// drops the window, rebuilds it, throws or changes the language inside its questions.
#include "fuzz/ElementFuzz.h"
#include "tests/support/ElementNames.h"

#include <stdexcept>

namespace {

using GUI::Pane;

Utilities::SmartPointer<GUI::DescriptionTree> Describe(std::string const& type, Fuzz::Choices& choices) {
    auto const node = TestSupport::Node({{"GUIElementType", type.c_str()}, {"ElementName", "e"}});
    for (auto const& attribute : GUI::AttributeTable::Collect(type)) {
        if (node->FindValue(attribute.key)) continue;
        if (attribute.mandatory) (*node)[attribute.key] = attribute.defaultValue;
        if (choices.Byte() % 4 != 0) continue;
        switch (attribute.type) {
        case GUI::AttributeType::Flag:
            (*node)[attribute.key] = choices.Byte() % 2 == 0 ? "Yes" : "No";
            break;
        case GUI::AttributeType::Number:
            (*node)[attribute.key] = Utilities::String(choices.Number(), 1, '.');
            break;
        case GUI::AttributeType::Colour:
            (*node)[attribute.key] = "10,20,30";
            break;
        default:
            (*node)[attribute.key] = choices.Text().c_str();
        }
    }
    return node;
}

class Session {
public:
    explicit Session(Fuzz::Choices& choices) : choices_(choices), source_(choices) {
        static auto const names = TestSupport::ElementNames();
        type_ = names[choices_.Below(names.size())];
        source_.strike = [this](std::size_t kind) { Strike(kind); };
        Fuzz::Try([&] { root_ = host_.Create(Tree(), &source_); });
    }
    ~Session() {
        source_.strike = nullptr;
        Fuzz::Try([&] { root_ = nullptr; });
    }
    Session(Session const&) = delete;
    Session& operator=(Session const&) = delete;

    void Step() {
        if (root_.IsNull() || root_->GetChildrenList().GetSize() == 0) return;
        auto const element = root_->GetChildrenList().Begin().Current();
        auto const operation = choices_.Below(16);
        auto const x = static_cast<unsigned long>(choices_.Byte());
        auto const y = static_cast<unsigned long>(choices_.Byte());
        GUI::GUIElement& target = *element;
        Fuzz::Try([&] { OnElement(target, operation, x, y); });
        if (auto* const pane = dynamic_cast<Pane*>(&target))
            Fuzz::Try([&] { OnPane(*pane, operation, static_cast<long>(x), static_cast<long>(y)); });
    }

private:
    Utilities::SmartPointer<GUI::DescriptionTree> Tree() {
        return TestSupport::Node({{"GUIElementType", "Pane"}, {"ElementName", "root"}},
                                 {Describe(type_, choices_)});
    }

    void Strike(std::size_t kind) {
        if (root_.IsNull()) return;
        auto const held = root_;
        switch (kind) {
        case 0:
            root_ = nullptr;
            break;
        case 1:
            if (++rebuilt_ < 10) dynamic_cast<Pane&>(*held).SetGUIDescriptionTree(*Tree(), &source_);
            break;
        case 2:
            throw std::runtime_error("from a data source");
        case 3:
            if (++rebuilt_ < 10) held->OnLanguageChanged();
            break;
        default:
            if (++rebuilt_ < 10) held->RecalculateSize();
        }
    }

    void OnElement(GUI::GUIElement& element, std::size_t operation, unsigned long x, unsigned long y) {
        char const* const commands[] = {"",        "Properties",  "|NoRepaint",
                                        "1;1-3;2", "1;1-70000;9", "Properties|NoRepaint"};
        switch (operation) {
        case 0:
            return element.SetPosition(x * 300, y * 300);
        case 1:
            return element.SetSize(x * x, y);
        case 2:
            return static_cast<void>(element.OnUpdate(commands[x % std::size(commands)]));
        case 3:
            return static_cast<void>(element.OnUpdate(choices_.Answer()));
        case 4:
            return element.Enable(x % 2 == 0);
        case 5:
            return static_cast<void>(element.GetRegion(x, y));
        case 6:
            return element.SetAttributes(*Describe(type_, choices_));
        case 7:
            return element.RecalculateSize();
        case 8:
            return element.OnLanguageChanged();
        case 9: {
            unsigned long range[4] = {};
            return element.GetSizeInformation(range[0], range[1], range[2], range[3]);
        }
        default:
            return static_cast<void>(element.GetCurrentRegion());
        }
    }

    void OnPane(Pane& pane, std::size_t operation, long x, long y) {
        switch (operation) {
        case 10: {
            TestSupport::RecordingDeviceContext context;
            return host_.Paint(pane, context);
        }
        case 11:
            return static_cast<void>(host_.Click(pane, x, y, x % 2 == 0));
        case 12:
            return static_cast<void>(host_.Move(pane, x, y));
        case 13:
            return static_cast<void>(
                host_.GetToolTip(pane, static_cast<unsigned short>(x), static_cast<unsigned short>(y)));
        case 14:
            return static_cast<void>(pane.Select(choices_.Answer()));
        case 15:
            pane.SetFrame(x % 2 == 0);
            return pane.SetBackgroundColor(GUI::RGBVector(choices_.Answer()));
        default:
            return static_cast<void>(pane.GetProperties());
        }
    }

    Fuzz::Choices& choices_;
    TestSupport::FakeWindowHost host_;
    Fuzz::RandomSource source_;
    std::string type_;
    Utilities::SmartPointer<GUI::GUIElement> root_;
    int rebuilt_ = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    Fuzz::SetLimits();
    Fuzz::Choices choices(data, size);
    {
        Session session(choices);
        for (int step = 0; step < 100 && !choices.AtEnd(); ++step) session.Step();
    }
    Fuzz::RequireNothingLeft();
    return 0;
}
