#include "gui/controls/Edit.h"

#include <utility>

namespace GUI {

using Utilities::String;

void Edit::Initialize(PlatformIndependentWindowID const& parent, DescriptionTree const& description,
                      DialogDataSource* dataSource) {
    GUIElement::Initialize(parent, description, dataSource);
    AttributeReader const reader(description);
    commits_ = reader.Flag(commit) && !reader.Flag(multiLine);
    if (reader.Text(validator) == "Number")
        rule_ = NumberRule{reader.Number(minimum), reader.Number(maximum), reader.Long(decimals)};
    RegisterOnUpdate();
}

std::optional<String> Edit::TakeText(String const& given) {
    if (known_ && *known_ == given) return std::nullopt;
    known_ = given;
    pending_.reset();
    if (!rule_) return given;
    isValid_ = rule_->Read(given.GetStdString(), ".").has_value();
    ShowValid();
    String shown = given;
    if (isValid_) shown.Replace(".", GetDecimalSign());
    return shown;
}

void Edit::OnTyped(String const& typed) {
    if (commits_)
        pending_ = typed;
    else
        Tell(typed);
}

void Edit::OnFinished() {
    // Leaving the field by Enter comes twice.
    if (!pending_) return;
    String const typed = *pending_;
    if (rule_ && !rule_->Read(typed.GetStdString(), GetDecimalSign())) return Tell(typed);
    pending_.reset();
    Tell(typed);
}

std::optional<String> Edit::TakeBack() {
    if (!pending_ || !known_) return std::nullopt;
    String const former = *known_;
    known_.reset();
    return TakeText(former);
}

void Edit::Tell(String const& typed) {
    CallScope const call(*this);
    String told = typed;
    if (rule_) {
        auto const number = rule_->Read(typed.GetStdString(), GetDecimalSign());
        bool const wasValid = std::exchange(isValid_, number.has_value());
        if (wasValid != isValid_) {
            ShowValid();
            TellValue("Valid", isValid_);
        }
        if (!number || !IsAttached()) return;
        told = *number;
    }
    known_ = told;
    TellValue("Text", told);
    Fire("OnTextChanged", GetElementName());
}

void Edit::OnFocus(bool focused) { Fire(focused ? "OnSetFocus" : "OnKillFocus", GetElementName()); }

} // namespace GUI
