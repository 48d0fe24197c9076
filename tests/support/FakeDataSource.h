#pragma once

#include "gui/elements/CallbackTable.h"
#include "gui/elements/DialogDataSource.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace TestSupport {

/// A data source whose values are set beforehand. It counts what elements ask, and keeps in order what
/// they tell; a value that is told is given from then on.
class FakeDataSource : public GUI::DialogDataSource {
public:
    using Key = std::pair<std::string, std::string>;
    struct Told {
        std::string element;
        std::string name;
        Utilities::Anything value;
    };

    std::map<Key, Utilities::Anything> values;
    std::map<Key, int> asked;
    std::vector<Told> told;

    void SetValue(Utilities::String const& element, Utilities::String const& name,
                  Utilities::Anything const& value) override {
        told.push_back({element, name, value});
        values[{element, name}] = value;
    }
    Utilities::Anything GetValue(Utilities::String const& element, Utilities::String const& name) override {
        ++asked[{element, name}];
        auto const found = values.find({element, name});
        return found == values.end() ? Utilities::Anything() : found->second;
    }
    void SetCallback(Utilities::String const& element, Utilities::String const& name,
                     Utilities::Callback const& callback) override {
        callbacks_.Set(element, name, callback);
    }
    Utilities::Callback GetCallback(Utilities::String const& element,
                                    Utilities::String const& name) override {
        return callbacks_.Find(element, name);
    }
    void RemoveAllCallbacks(Utilities::String const& element) override { callbacks_.Remove(element); }

    /// Runs a callback that an element has registered; 0 without one.
    long Fire(char const* element, char const* event, Utilities::Anything const& argument = {}) {
        return GetCallback(element, event).Execute(argument);
    }

private:
    GUI::CallbackTable callbacks_;
};

} // namespace TestSupport
