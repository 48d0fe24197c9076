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

/// What is known of a condition: said by the file or the host, taken from a named default, or not known.
enum class ConditionState { Stated, Assumed, Unknown };

/// The origin of what a computation assumes by itself.
inline constexpr char const* kLibraryDefault = "library default";

/// Under which conditions something was or is to be measured: a map from condition key to value, both
/// text, with the keys and values of `Vocabulary.h`. It takes any text; an operation that uses a value
/// checks it then.
///
/// A condition that isn't there is unknown. Where a computation needs it, it takes the default and marks it
/// as assumed in the result: D50, TwoDegree, Absolute, Remission. Filter, geometry and backing change no
/// computation and stay unknown. The form of a result has plain defaults: CIELab, AbsoluteVector, formula
/// CIELab, density standard ANSIE, filter mode Auto.
class NVMeasureConditions {
public:
    using Map = std::map<std::string, std::string, std::less<>>;

    /// States a condition.
    void SetMeasureCondition(std::string const& key, std::string const& value);
    /// Sets a condition that nobody stated; `by` names the default it comes from, such as "CGATS.17".
    void Assume(std::string const& key, std::string const& value, std::string const& by);
    /// The value, or an empty text if the condition isn't there.
    std::string GetMeasureCondition(std::string_view key) const;

    /// Makes a condition unknown again.
    void Forget(std::string const& key);

    ConditionState GetState(std::string_view key) const;
    /// The default that an assumed condition comes from; empty for the others.
    std::string GetAssumption(std::string_view key) const;
    /// All assumed conditions, with the default that each comes from.
    Map const& GetAssumptions() const { return data_->assumed; }

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

    Map const& GetAll() const { return data_->values; }
    /// Same values in the same state.
    bool operator==(NVMeasureConditions const& other) const {
        return data_ == other.data_ || *data_ == *other.data_;
    }

private:
    struct Data {
        Map values;
        Map assumed;
        bool operator==(Data const&) const = default;
    };
    /// Shared by copies until one of them changes: the thousands of colours of a file have the same.
    std::shared_ptr<Data> data_ = Empty();

    static std::shared_ptr<Data> const& Empty();
    Data& Own();
};

} // namespace Norvelian::Tristim
