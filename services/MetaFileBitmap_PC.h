#pragma once

#include "core/component/ComponentCreatorBase.h"
#include "gui/elements/drawing/Bitmap.h"
#include "gui/platform/Picture_PC.h"

#include <QPicture>
#include <memory>

namespace GUI {

class PlatformIndependentDeviceContext_PC;

/// A picture that is recorded instead of painted, and replayed into another surface at whatever scale that
/// one has. It has neither size nor pixels: `Create` and `Load` do nothing and succeed, and what needs
/// pixels fails.
class MetaFileBitmap_PC : public Bitmap, public Picture_PC {
public:
    MetaFileBitmap_PC();
    MetaFileBitmap_PC(MetaFileBitmap_PC const&) = delete;
    MetaFileBitmap_PC& operator=(MetaFileBitmap_PC const&) = delete;
    ~MetaFileBitmap_PC() override;

    bool Create(unsigned long width, unsigned long height) override;
    bool Load(Utilities::File const& file) override;
    bool LoadAndResize(Utilities::File const& file, unsigned long width, unsigned long height) override;
    unsigned long GetWidth() const override { return 0; }
    unsigned long GetHeight() const override { return 0; }
    /// Starts a new recording; the former one stays until `EndDraw`.
    PlatformIndependentDeviceContext& BeginDraw() override;
    void EndDraw() override;
    /// None.
    void GetPixels(Pixels& result) const override;
    FileFormats GetFileFormats() const override { return {}; }

    /// Replays the recording; nothing happens if there is none. Throws `RuntimeException` if it can't be
    /// replayed.
    void DrawBitmap(QPainter& target);
    void DrawBitmap(long x, long y, QPainter& target) override;
    /// Null if there is no recording.
    QPicture const* GetHandle() const { return recorded_.get(); }
    /// Gives the recording away and leaves the object without one.
    std::unique_ptr<QPicture> DetachHandle() { return std::move(recorded_); }

    static Utilities::ComponentCreatorBase::Descriptor GetDescriptor();

private:
    std::unique_ptr<QPicture> recorded_;
    std::unique_ptr<QPicture> recording_;
    std::unique_ptr<PlatformIndependentDeviceContext_PC> context_;
};

} // namespace GUI
