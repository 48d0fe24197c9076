#pragma once

#include "Utilities/Tools/SmartPointer.h"
#include "core/base/String.h"
#include "core/component/Component.h"
#include "gui/elements/drawing/Bitmap.h"

namespace GUI {

/// What elements use of the component "ImageService": pictures by bare name, without path or extension.
class ImageServiceInterface : public Utilities::Component {
public:
    /// The picture of that name, or the one named "UnknownBitmap"; null if there is neither or its file
    /// can't be shown.
    virtual Utilities::SmartPointer<Bitmap> GetBitmap(Utilities::String const& name) = 0;
    /// Gives a picture made at run time a name.
    virtual void SetBitmap(Utilities::String const& name, Utilities::SmartPointer<Bitmap> bitmap) = 0;
    /// Forgets all pictures; who holds one keeps it.
    virtual void Clear() = 0;
    /// Forgets the pictures that came from a language's directory, so that they are looked for in the one
    /// of the language that is current now.
    virtual void OnLanguageChanged() {}
    /// Whether there is a picture of that name. Unlike `GetBitmap` it tells nobody of one that is missing.
    virtual bool HasBitmap(Utilities::String const& /*name*/) { return true; }
};

} // namespace GUI
