#pragma once

#include "Diagnostics/String.h"
#include "Utilities/File.h"
#include "Utilities/Tools/List.h"
#include "Utilities/Tools/Pair.h"
#include "Utilities/Tools/Vector.h"
#include "core/component/Component.h"
#include "gui/elements/colour/RGBVector.h"
#include "gui/elements/drawing/PlatformIndependentDeviceContext.h"

namespace GUI {

/// A picture that is created empty or loaded, drawn into, and read back pixel by pixel.
///
/// Drawing has two states. `BeginDraw` opens the picture and gives the context to draw with, which lives
/// until `EndDraw`; calling either in the wrong state throws `RuntimeException`. A picture that is destroyed
/// open closes itself.
class Bitmap : public Utilities::Component {
public:
    /// Name of a format and extension of its files.
    using FileFormats = Utilities::List<Utilities::Pair<Utilities::String, Utilities::String>>;
    /// Column by column, from the left and from the top.
    using Pixels = Utilities::Vector<Utilities::Vector<RGBVector>>;

    virtual Diagnostics::String GetDescription() const { return {}; }
    /// A new black picture in place of what there was; false if there can't be one of that size.
    virtual bool Create(unsigned long width, unsigned long height) = 0;
    /// What the file shows in place of what there was; false, and nothing changes, if it can't be shown.
    virtual bool Load(Utilities::File const& file) = 0;
    virtual bool LoadAndResize(Utilities::File const& file, unsigned long width, unsigned long height) = 0;
    /// In pixels; 0 if the picture is empty.
    virtual unsigned long GetWidth() const = 0;
    virtual unsigned long GetHeight() const = 0;
    virtual PlatformIndependentDeviceContext& BeginDraw() = 0;
    virtual void EndDraw() = 0;
    virtual void GetPixels(Pixels& result) const = 0;
    virtual FileFormats GetFileFormats() const = 0;
};

} // namespace GUI
