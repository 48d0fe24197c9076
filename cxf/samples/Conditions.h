#pragma once

#include "cxf/conditions/NVMeasureConditions.h"

#include <string>

namespace Norvelian::ColorExchangeFormat {

/// The condition set of a sample attribute, with the keys and values of the colour vocabulary. An empty
/// set asks for nothing.
class Conditions {
public:
    Conditions() = default;
    explicit Conditions(Tristim::NVMeasureConditions values) : values_(std::move(values)) {}

    /// The value of `key`, or `defaultValue` if it is absent.
    std::string GetAttribute(std::string const& key, std::string const& defaultValue) const {
        auto const& all = values_.GetAll();
        auto const found = all.find(key);
        return found == all.end() ? defaultValue : found->second;
    }
    void SetAttribute(std::string const& key, std::string const& value) {
        values_.SetMeasureCondition(key, value);
    }
    /// Sets a condition that nobody stated; `by` names the default it comes from.
    void Assume(std::string const& key, std::string const& value, std::string const& by) {
        values_.Assume(key, value, by);
    }
    void Forget(std::string const& key) { values_.Forget(key); }

    bool IsEmpty() const { return values_.GetAll().empty(); }
    /// Whether `other` has every condition of this set with the same value.
    bool IsPartOf(Conditions const& other) const {
        for (auto const& [key, value] : values_.GetAll()) {
            auto const found = other.GetAll().find(key);
            if (found == other.GetAll().end() || found->second != value) return false;
        }
        return true;
    }

    Tristim::NVMeasureConditions const& GetMeasureConditions() const { return values_; }
    Tristim::NVMeasureConditions::Map const& GetAll() const { return values_.GetAll(); }
    bool operator==(Conditions const&) const = default;

private:
    Tristim::NVMeasureConditions values_;
};

} // namespace Norvelian::ColorExchangeFormat
