#pragma once

#include "gui/elements/Pane.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/RecordingDeviceContext.h"

#include <gmock/gmock.h>

namespace TestSupport {

using Attributes = std::initializer_list<std::pair<char const*, char const*>>;

/// An element of the type under test, 100 by 50 pixels large.
template <class T> struct ChartFixture {
    FakeWindowHost host;
    FakeDataSource source;
    Utilities::SmartPointer<GUI::GUIElement> element;

    void Make(Attributes attributes) {
        auto const node = Node(attributes);
        (*node)["ElementName"] = "E";
        element = Utilities::MakeSmart<T>();
        element->Initialize(host.GetWindow(), *node, &source);
        element->SetSize(100, 50);
    }
    T& Get() { return dynamic_cast<T&>(*element); }
    RecordingDeviceContext::Rows Paint(char const* operation = "") {
        RecordingDeviceContext context;
        Get().OnPaint(context);
        return context.GetRows(operation);
    }
    std::size_t Count(char const* operation) { return Paint(operation).size(); }
    int Paints() { return host.GetPaintCount(Get()); }
};

} // namespace TestSupport
