#include "gui/elements/application/QuestionBox.h"

#include "Utilities/NamingService.h"
#include "gui/elements/DialogHandler.h"
#include "gui/elements/OwnedCallback.h"
#include "gui/elements/Topics.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/application/Dialog.h"

namespace GUI {

using Utilities::Anything;
using Utilities::SmartPointer;
using Utilities::String;

namespace {

namespace Common = CommonAttributes;

constexpr Attribute textKey{"Text", AttributeType::Text, "", "The question", true};
constexpr Attribute captionKey{"Caption", AttributeType::Text, "", "Title; the program's name if absent"};
constexpr Attribute widthKey{"Width", AttributeType::Number, "360", "Width of the inside",
                             false,   unsignedRange};
constexpr Attribute heightKey{"Height", AttributeType::Number, "120", "Height of the inside",
                              false,    unsignedRange};
constexpr Attribute escapeKey{"EscKeyElementName", AttributeType::ElementName, "",
                              "The button that the Esc key clicks"};
constexpr Attribute enterKey{"EnterKeyElementName", AttributeType::ElementName, "",
                             "The button that the Enter key clicks"};
constexpr Attribute attributes[] = {textKey, captionKey, widthKey, heightKey, escapeKey, enterKey};
AttributeTable const table("QuestionBox", nullptr, attributes, AttributeTable::Kind::Part);

constexpr char const* name = "QuestionBox";
constexpr char const* margin = "16";
constexpr char const* gap = "8";

/// Notes which button was clicked, and closes the dialog.
class Answers : public DialogHandler {
public:
    void Register(String const& button) { SetCallback(button, Events::click, onClick_.Get()); }
    void SetDialog(SmartPointer<Dialog> const& dialog) { dialog_ = dialog; }
    String const& GetAnswer() const { return answer_; }

private:
    long OnClick(Anything const& button) {
        answer_ = button.GetString();
        if (!dialog_.IsNull()) dialog_->Close(1);
        return 0;
    }

    String answer_;
    SmartPointer<Dialog> dialog_;
    OwnedCallback<Answers> onClick_{this, &Answers::OnClick};
};

SmartPointer<DescriptionTree> Node(char const* type) {
    auto node = Utilities::MakeSmart<DescriptionTree>();
    (*node)[Common::elementType.key] = type;
    return node;
}

SmartPointer<DescriptionTree> Space(Attribute const& side, char const* size) {
    auto space = Node("GumBox");
    (*space)[side.key] = size;
    return space;
}

void SetUnlessThere(DescriptionTree& node, Attribute const& attribute, char const* value) {
    if (!node.FindValue(attribute.key)) node[attribute.key] = value;
}

/// The buttons in a row at the right.
SmartPointer<DescriptionTree> DescribeButtons(DescriptionTree const& question, Answers& answers) {
    constexpr char const* width = "96";
    constexpr char const* height = "32";
    auto row = Node("HBox");
    row->AddChild(Space(Common::maximalWidth, "10000"));
    for (auto child = question.GetChildren(); child.IsValid(); ++child) {
        auto const button = Utilities::MakeSmart<DescriptionTree>(*child.Current());
        for (Attribute const& side : {Common::minimalWidth, Common::maximalWidth})
            SetUnlessThere(*button, side, width);
        for (Attribute const& side : {Common::minimalHeight, Common::maximalHeight})
            SetUnlessThere(*button, side, height);
        row->AddChild(Space(Common::maximalWidth, gap));
        row->AddChild(button);
        answers.Register(AttributeReader(*button).Text(Common::elementName));
    }
    return row;
}

SmartPointer<DescriptionTree> Describe(DescriptionTree const& question, Answers& answers) {
    AttributeReader const reader(question);
    auto dialog = Node("Dialog");
    (*dialog)[Common::elementName.key] = name;
    (*dialog)["Closeable"] = "Yes";
    (*dialog)[captionKey.key] =
        reader.Has(captionKey) ? reader.Text(captionKey) : Application::Instance().GetName();
    for (Attribute const& attribute : {widthKey, heightKey, escapeKey, enterKey})
        (*dialog)[attribute.key] = reader.Text(attribute);
    auto const frame = Node("FrameBox");
    for (char const* const side : {"Left", "Top", "Right", "Bottom"}) (*frame)[side] = margin;
    auto const column = Node("VBox");
    auto const text = Node("FixedText");
    (*text)["Caption"] = reader.Text(textKey);
    column->AddChild(text);
    column->AddChild(DescribeButtons(question, answers));
    frame->AddChild(column);
    dialog->AddChild(frame);
    return dialog;
}

} // namespace

String QuestionBox::Ask(PlatformIndependentWindowID const& parent) const {
    Answers answers;
    auto const description = Describe(description_, answers);
    auto dialog = Utilities::ResolveComponent<Dialog>("Dialog");
    answers.SetDialog(dialog);
    static_cast<GUIElement&>(*dialog).Initialize(parent, *description, &answers);
    dialog->RunModal();
    // The handler goes with this call.
    answers.SetDialog({});
    dialog = nullptr;
    return answers.GetAnswer();
}

bool QuestionBox::MayDiscard(PlatformIndependentWindowID const& parent) {
    constexpr char const* discard = "Discard";
    constexpr char const* keep = "Keep";
    auto const question = Node(name);
    (*question)[textKey.key] = "Discard the changes?";
    (*question)[escapeKey.key] = keep;
    for (char const* const answer : {discard, keep}) {
        auto const button = Node("Button");
        (*button)[Common::elementName.key] = answer;
        (*button)["Caption"] = answer == discard ? "Discard" : "Keep editing";
        (*button)["Default"] = answer == keep ? "Yes" : "No";
        question->AddChild(button);
    }
    return QuestionBox(*question).Ask(parent) == discard;
}

} // namespace GUI
