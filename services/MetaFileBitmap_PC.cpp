#include "services/MetaFileBitmap_PC.h"

#include "core/base/Exceptions.h"
#include "gui/platform/PlatformIndependentDeviceContext_PC.h"

#include <QPainter>
#include <utility>

namespace GUI {

using Norvelian::Utilities::Exceptions::RuntimeException;

MetaFileBitmap_PC::MetaFileBitmap_PC() = default;
MetaFileBitmap_PC::~MetaFileBitmap_PC() = default;

bool MetaFileBitmap_PC::Create(unsigned long /*width*/, unsigned long /*height*/) { return true; }
bool MetaFileBitmap_PC::Load(Utilities::File const& /*file*/) { return true; }
bool MetaFileBitmap_PC::LoadAndResize(Utilities::File const& /*file*/, unsigned long /*width*/,
                                      unsigned long /*height*/) {
    return false;
}

void MetaFileBitmap_PC::GetPixels(Pixels& result) const { result = {}; }

PlatformIndependentDeviceContext& MetaFileBitmap_PC::BeginDraw() {
    if (context_)
        throw RuntimeException(
            "MetaFileBitmap_PC::BeginDraw() called twice, without calling EndDraw between.");
    recording_ = std::make_unique<QPicture>();
    context_ = std::make_unique<PlatformIndependentDeviceContext_PC>(*recording_);
    return *context_;
}

void MetaFileBitmap_PC::EndDraw() {
    if (!context_)
        throw RuntimeException("MetaFileBitmap_PC::EndDraw() called without calling BeginDraw before.");
    context_.reset();
    recorded_ = std::move(recording_);
}

void MetaFileBitmap_PC::DrawBitmap(QPainter& target) { DrawBitmap(0, 0, target); }

void MetaFileBitmap_PC::DrawBitmap(long x, long y, QPainter& target) {
    if (!recorded_) return;
    target.save();
    target.translate(static_cast<int>(x), static_cast<int>(y));
    // An empty recording has nothing to play, and playing it fails.
    bool const played = recorded_->size() == 0 || recorded_->play(&target);
    target.restore();
    if (!played) throw RuntimeException("MetaFileBitmap_PC: No metafile data available");
}

Utilities::ComponentCreatorBase::Descriptor MetaFileBitmap_PC::GetDescriptor() {
    return Utilities::ComponentDescription{"MetaFileBitmap", "$Revision: 1.7 $", "GUI"}.GetDescriptor();
}

} // namespace GUI
