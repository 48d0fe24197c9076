#pragma once

#include "Utilities/Tools/SmartPointer.h"
#include "core/values/Anything.h"

namespace Norvelian::ColorExchangeFormat {
class Sample;
}

namespace GUI {

/// A data source that can give colour data says so by deriving from this.
class DataAccess {
public:
    virtual ~DataAccess() = default;
};

/// A data source whose data are samples. A sample key is a map that holds "ElementName" and what the
/// element adds; it tells which sample the element represents.
class CXFAccess : public DataAccess {
public:
    /// A null pointer if the key means no sample.
    virtual Utilities::SmartPointer<Norvelian::ColorExchangeFormat::Sample>
    GetSample(Utilities::Anything const& sampleKey) = 0;
    /// `what` is the text "Name" or "Description".
    virtual void DataChanged(Utilities::Anything const& sampleKey, Utilities::Anything const& what) = 0;
    /// Whether the sample may not be changed; both arguments may be invalid.
    virtual bool IsLocked(Utilities::Anything const& sampleKey, Utilities::Anything const& what) = 0;
};

} // namespace GUI
