#include "gui/controls/ClickControl.h"

#include "gui/elements/Topics.h"
#include "gui/elements/application/Application.h"

#include <string>

namespace GUI {

void ClickControl::OnClicked(std::optional<long> state) {
    CallScope const call(*this);
    try {
        if (state) TellValue(Values::state, *state);
        Fire(Events::click, GetElementName());
    } catch (std::exception const& failure) {
        Application::Instance().ReportError(
            (std::string("An unexpected error occured. Error text:") + failure.what()).c_str());
    }
}

} // namespace GUI
