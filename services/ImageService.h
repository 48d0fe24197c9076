#pragma once

#include "Utilities/Tools/Map.h"
#include "gui/elements/drawing/ImageServiceInterface.h"
#include "services/ImageDirectory.h"

#include <map>
#include <set>

namespace GUI {

/// Loads pictures by bare name, once: the component "ImageService". GUI thread only.
///
/// A picture is a file of that name with any extension in the directory "images" of the program; if there
/// is none, in its sub-directory named after the current language; if there is none either, in
/// "images/English". Pictures of the last two kinds are looked for again when the language changes. A name
/// that isn't found gives the picture "UnknownBitmap" and is looked for again the next time; a file that
/// can't be shown gives null.
///
/// Settings of the section "ImageService" show where pictures come from: "Mark" crosses each one over (blue
/// for "images", green for the language's, red for the English directory), "ShowFileNames" writes the file's
/// name into it.
class ImageService : public ImageServiceInterface {
public:
    ImageService();

    Utilities::SmartPointer<Bitmap> GetBitmap(Utilities::String const& name) override;
    bool HasBitmap(Utilities::String const& name) override;
    void SetBitmap(Utilities::String const& name, Utilities::SmartPointer<Bitmap> bitmap) override;
    void Clear() override;
    void OnLanguageChanged() override;
    bool PrepareForUnload() override;
    virtual Diagnostics::String GetValueString() { return "ImageService"; }

private:
    struct Found {
        Utilities::File file;
        int level = 0;
    };

    std::optional<Found> Find(Utilities::String const& name);
    ImageDirectory& ImagesDirectory();
    ImageDirectory* LanguageDirectory(Utilities::String const& language);
    Utilities::SmartPointer<Bitmap> LoadFound(Found const& found) const;
    void Mark(Bitmap& bitmap, int level) const;

    Utilities::Map<Utilities::String, Utilities::SmartPointer<Bitmap>> cache_;
    /// Names in the cache whose pictures are those of a language.
    std::set<std::string> ofLanguage_;
    bool markImages_ = false;
    bool showFileNames_ = false;
    /// Listings by path.
    std::map<std::string, ImageDirectory> directories_;
    std::string imagesPath_;
};

} // namespace GUI
