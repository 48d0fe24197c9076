#include "Utilities/Tools/SmartPointer.h"

namespace Utilities::Detail {

void DestroyShared(SharedCount* count) {
    std::unique_ptr<SharedCount> const owned(count);
    owned->destroy(owned->object);
}

} // namespace Utilities::Detail
