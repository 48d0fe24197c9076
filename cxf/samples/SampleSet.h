#pragma once

#include "cxf/samples/Sample.h"

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace Norvelian::ColorExchangeFormat {

/// Samples that belong together, usually one table of a file, and what the file says about them.
///
/// One thread at a time. Observers are called after the change, in the order in which they were added;
/// they may add and remove observers, themselves included, and change samples again.
class SampleSet {
public:
    using SamplePointer = ::Utilities::SmartPointer<Sample>;
    /// A keyword of the file's header, or "#" and a comment; kept in order for writing.
    using Property = std::pair<std::string, std::string>;

    enum class Change { Name, Description, Attribute, Added, Removed };
    using Observer = std::function<void(Change change, Sample const& sample)>;

    SampleSet() = default;
    SampleSet(SampleSet const&) = delete;
    SampleSet& operator=(SampleSet const&) = delete;
    /// Samples that others still hold live on without a set.
    ~SampleSet();

    std::string const& GetName() const { return name_; }
    void SetName(std::string name) { name_ = std::move(name); }
    std::string const& GetDescription() const { return description_; }
    void SetDescription(std::string description) { description_ = std::move(description); }

    std::vector<SamplePointer> const& GetSamples() const { return samples_; }
    /// Null if there is none of this name.
    SamplePointer FindSample(std::string const& name) const;
    /// The sample must not be null nor belong to a set; its name is left as it is. Throws
    /// `TristimException`.
    void AddSample(SamplePointer sample);
    /// False if the sample isn't in this set.
    bool RemoveSample(Sample const& sample);
    /// `name`, or `name` with a number behind it, so that no other sample than `self` bears it.
    std::string UniqueName(std::string const& name, Sample const* self) const;

    std::vector<Property> const& GetProperties() const { return properties_; }
    /// The first property of this name; empty if there is none.
    std::string GetProperty(std::string const& key) const;
    void AddProperty(std::string key, std::string value) {
        properties_.emplace_back(std::move(key), std::move(value));
    }

    /// Foreign parts of this set, and of the file around it (with the file's first set).
    ForeignParts const& GetForeign() const { return foreign_; }
    void SetForeign(ForeignParts foreign) { foreign_ = std::move(foreign); }
    ForeignParts const& GetFileForeign() const { return fileForeign_; }
    void SetFileForeign(ForeignParts foreign) { fileForeign_ = std::move(foreign); }

    /// The number by which the observer is removed again.
    std::size_t AddObserver(Observer observer);
    void RemoveObserver(std::size_t number);

private:
    friend class Sample;
    void Notify(Change change, Sample const& sample);

    std::string name_;
    std::string description_;
    std::vector<SamplePointer> samples_;
    std::vector<Property> properties_;
    ForeignParts foreign_;
    ForeignParts fileForeign_;
    std::vector<std::pair<std::size_t, Observer>> observers_;
    std::size_t nextObserver_ = 0;
};

} // namespace Norvelian::ColorExchangeFormat
