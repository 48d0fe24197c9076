#pragma once

#include "Utilities/Tools/SmartPointer.h"
#include "cxf/samples/SampleAttribute.h"

#include <string>
#include <vector>

namespace Norvelian::ColorExchangeFormat {

class SampleSet;

namespace Extensions {

/// What can be renamed from outside.
class SelectableElement {
public:
    virtual ~SelectableElement() = default;
    /// Asks for a new name and returns the one actually given.
    virtual std::string RenameSample(std::string const& name) = 0;
};

} // namespace Extensions

/// One measured sample: a name, a description, and what is known about it. A sample belongs to at most
/// one set, which is told about every change.
class Sample : public Extensions::SelectableElement {
public:
    using AttributePointer = ::Utilities::SmartPointer<SampleAttribute>;

    explicit Sample(std::string name, std::string description = {});
    Sample(Sample const&) = delete;
    Sample& operator=(Sample const&) = delete;
    ~Sample() override;

    std::string GetName() const { return name_; }
    std::string GetDescription() const { return description_; }
    void SetDescription(std::string const& description);

    /// Control characters become blanks, and blanks around the name go. A name that another sample of the
    /// set bears gets " (2)", " (3)" ... behind it; an empty one changes nothing.
    std::string RenameSample(std::string const& name) override;

    /// The first attribute of the type, such as "CXFSpectrum", that was taken under `conditions`; null if
    /// there is none. With `exact` the attribute must have these conditions and no others; otherwise it
    /// needs to have these, so that empty conditions find the first of the type.
    AttributePointer GetSampleAttribute(std::string const& type, Conditions const& conditions,
                                        bool exact) const;

    std::vector<AttributePointer> const& GetSampleAttributes() const { return attributes_; }
    void AddSampleAttribute(AttributePointer attribute);
    /// Removes the attribute at this place of the list; out of range throws `TristimException`.
    void RemoveSampleAttribute(std::size_t index);

    /// What identifies the sample in its file, such as a CGATS "SAMPLE_ID"; may be empty.
    std::string const& GetId() const { return id_; }
    void SetId(std::string id) { id_ = std::move(id); }

    ForeignParts const& GetForeign() const { return foreign_; }
    void SetForeign(ForeignParts foreign) { foreign_ = std::move(foreign); }

    /// Null if the sample belongs to no set.
    SampleSet* GetSet() const { return set_; }

private:
    friend class SampleSet;
    std::string name_;
    std::string description_;
    std::string id_;
    std::vector<AttributePointer> attributes_;
    ForeignParts foreign_;
    SampleSet* set_ = nullptr;
};

} // namespace Norvelian::ColorExchangeFormat
