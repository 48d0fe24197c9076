#pragma once

#include "cxf/conditions/Viewing.h"
#include "cxf/conditions/Vocabulary.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace Norvelian::Tristim {

/// Under which conditions something was or is to be measured: a map from condition key to value, both
/// text, with the keys and values of `Vocabulary.h`. It takes any text; an operation that uses a value
/// checks it then. A condition that isn't there has its default: D50, TwoDegree, Absolute, filter No,
/// Remission, CIELab, AbsoluteVector, formula CIELab, density standard ANSIE, filter mode Auto.
class NVMeasureConditions {
public:
    using Map = std::map<std::string, std::string, std::less<>>;

    void SetMeasureCondition(std::string const& key, std::string const& value);
    /// The value, or an empty text if the condition isn't there.
    std::string GetMeasureCondition(std::string_view key) const;

    /// Element `index` of the colour space that `ColorSpaceDescription.Type` names, absolute or delta
    /// as `ColorSpaceDescription.AbsoluteOrDeltaVector` says. Throws `TristimException` for an unknown
    /// colour space and an index that the space doesn't have.
    std::string GetElementName(short index) const;

    /// A condition that is a spectrum, such as `Key::PaperSpectrum`: 36 values separated by blanks.
    void SetBands(std::string const& key, Bands const& values);
    /// Nothing if the condition isn't there; throws `TristimException` if it isn't 36 finite numbers.
    std::optional<Bands> GetBands(std::string_view key) const;

    /// Position of the condition's value in a table of the vocabulary; an absent or empty condition is
    /// `fallback`. Throws `TristimException` that names key, value and the allowed ones.
    std::size_t GetChoice(std::string_view key, std::span<Vocabulary::Text const> values,
                          std::size_t fallback) const;

    Map const& GetAll() const { return *values_; }
    bool operator==(NVMeasureConditions const& other) const {
        return values_ == other.values_ || *values_ == *other.values_;
    }

private:
    /// Shared by copies until one of them changes: the thousands of colours of a file have the same.
    std::shared_ptr<Map> values_ = Empty();

    static std::shared_ptr<Map> const& Empty();
};

} // namespace Norvelian::Tristim
