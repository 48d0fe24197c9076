#pragma once

#include "core/base/Exceptions.h"

namespace Norvelian::Tristim {

/// A colour can't be computed as asked: an unknown condition or value, conditions that don't go
/// together, or a number that isn't finite. The message names key and value.
class TristimException : public Utilities::Exceptions::BusinessException {
public:
    using BusinessException::BusinessException;
};

} // namespace Norvelian::Tristim
