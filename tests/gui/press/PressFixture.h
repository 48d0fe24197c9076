#pragma once

#include "gui/elements/Pane.h"
#include "tests/support/FakeDataSource.h"
#include "tests/support/FakeWindowHost.h"
#include "tests/support/RecordingDeviceContext.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <initializer_list>
#include <utility>

/// A press pane named "P" on a window host, painted into rows of text.
template <class Element> struct PressTest : testing::Test {
    using Anything = Utilities::Anything;
    using Rows = TestSupport::RecordingDeviceContext::Rows;

    TestSupport::FakeWindowHost host;
    TestSupport::FakeDataSource source;
    Utilities::SmartPointer<GUI::GUIElement> element;

    static Anything Values(std::initializer_list<Anything> values) {
        Anything::VectorOfAnythings vector(static_cast<std::uint32_t>(values.size()));
        std::copy(values.begin(), values.end(), vector.begin());
        return vector;
    }
    static Anything Longs(std::initializer_list<long> values) {
        Anything::VectorOfAnythings vector(static_cast<std::uint32_t>(values.size()));
        std::copy(values.begin(), values.end(), vector.begin());
        return vector;
    }
    static Anything Map(std::initializer_list<std::pair<char const*, Anything>> entries) {
        Anything::MapOfAnythings map;
        for (auto const& [key, value] : entries) map[key] = value;
        return map;
    }
    static Anything Color(unsigned char red, unsigned char green, unsigned char blue) {
        return GUI::RGBVector(red, green, blue).GetAnything();
    }
    void Set(char const* key, Anything const& value) { source.values[{"P", key}] = value; }

    void Make(char const* type, std::initializer_list<std::pair<char const*, char const*>> attributes,
              unsigned long width, unsigned long height) {
        auto const node = TestSupport::Node(attributes);
        (*node)["GUIElementType"] = type;
        (*node)["ElementName"] = "P";
        element = host.Create(node, &source);
        element->SetSize(width, height);
    }
    Element& Pane() { return dynamic_cast<Element&>(*element); }
    Rows Paint(char const* operation = "") {
        TestSupport::RecordingDeviceContext context;
        Pane().OnPaint(context);
        return context.GetRows(operation);
    }
};
