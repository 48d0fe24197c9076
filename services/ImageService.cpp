#include "services/ImageService.h"

#include "Diagnostics/Sink.h"
#include "Utilities/Directory.h"
#include "Utilities/NamingService.h"
#include "Utilities/Preferences.h"
#include "Utilities/TranslationService.h"
#include "core/base/Exceptions.h"
#include "core/creators/ComponentCreator.h"

namespace GUI {

using Utilities::Directory;
using Utilities::SmartPointer;
using Utilities::String;

namespace {

Utilities::ComponentCreatorSingleton<ImageService> creator({"ImageService", "$Revision: 1.20 $", "GUI"});

constexpr char const* unknownBitmap = "UnknownBitmap";
constexpr char const* fallbackLanguage = "English";

bool IsTrue(Utilities::Preferences& preferences, char const* key) {
    return preferences.GetValue("ImageService", key, "false").GetAsLower() == "true";
}

/// Opens the picture and closes it whatever happens; what goes wrong while drawing is dropped.
template <class Draw> void DrawInto(Bitmap& bitmap, Draw draw) {
    auto& context = bitmap.BeginDraw();
    try {
        draw(context);
    } catch (...) {
        Diagnostics::DropException("ImageService: overlay");
    }
    bitmap.EndDraw();
}

RGBVector LevelColor(int level) {
    switch (level) {
    case 0:
        return {0, 0, 255};
    case 1:
        return {0, 255, 0};
    case 2:
        return {255, 0, 0};
    default:
        return {255, 255, 255};
    }
}

void WriteName(Bitmap& bitmap, String const& name) {
    DrawInto(bitmap, [&](PlatformIndependentDeviceContext& context) {
        context.SetTextColor(RGBVector(206, 64, 148));
        context.SetFont(6, 4, 0, "", 0);
        context.DrawText(5, 5, name);
    });
}

} // namespace

ImageService::ImageService() {
    try {
        auto const preferences = Utilities::ResolveComponent<Utilities::Preferences>("Preferences");
        markImages_ = IsTrue(*preferences, "Mark");
        showFileNames_ = IsTrue(*preferences, "ShowFileNames");
    } catch (...) {
        Diagnostics::DropException("ImageService: construction");
    }
}

SmartPointer<Bitmap> ImageService::GetBitmap(String const& name) {
    if (auto const cached = cache_.Find(name); cached.IsValid()) return cached.GetValue();
    try {
        if (auto const found = Find(name)) {
            auto bitmap = LoadFound(*found);
            if (bitmap.IsNull()) return bitmap;
            cache_[name] = bitmap;
            if (found->level > 0) ofLanguage_.insert(name.GetStdString());
            return bitmap;
        }
    } catch (...) {
        Diagnostics::DropException("ImageService::GetBitmap");
        Diagnostics::Report("ImageService::GetBitmap",
                            "ImageService: Can't parse directory. Directory object not available");
        return {};
    }
    Diagnostics::String missing("ImageService: Can't find image with the name '");
    missing += name.GetValueString();
    missing += "' in directory images";
    Diagnostics::Report("ImageService::GetBitmap", missing);
    if (!(name == unknownBitmap)) return GetBitmap(unknownBitmap);
    cache_[name] = {};
    return {};
}

bool ImageService::HasBitmap(String const& name) {
    if (auto const cached = cache_.Find(name); cached.IsValid()) return true;
    try {
        return Find(name).has_value();
    } catch (...) {
        Diagnostics::DropException("ImageService::HasBitmap");
        return false;
    }
}

std::optional<ImageService::Found> ImageService::Find(String const& name) {
    if (auto const file = ImagesDirectory().Find(name)) return Found{*file, 0};
    auto const languages = Utilities::ResolveComponent<Utilities::TranslationService>("LanguageService");
    if (auto* const directory = LanguageDirectory(languages->GetLanguage()))
        if (auto const file = directory->Find(name)) return Found{*file, 1};
    if (auto* const directory = LanguageDirectory(fallbackLanguage))
        if (auto const file = directory->Find(name)) return Found{*file, 2};
    return std::nullopt;
}

ImageDirectory& ImageService::ImagesDirectory() {
    auto known = directories_.find(imagesPath_);
    if (known == directories_.end() || !known->second.Refresh()) {
        auto const found =
            Directory::NewInstance(Directory::programDirectory, "")->GetSubDirectories("images");
        imagesPath_ = found[0]->GetPath();
        known = directories_.try_emplace(imagesPath_, imagesPath_).first;
        known->second.Refresh();
    }
    return known->second;
}

ImageDirectory* ImageService::LanguageDirectory(String const& language) {
    auto const found =
        Directory::NewInstance(Directory::anyDirectory, imagesPath_)->GetSubDirectories(language);
    if (language == "" || found.GetSize() == 0) return nullptr;
    std::string const path = found[0]->GetPath();
    auto& directory = directories_.try_emplace(path, path).first->second;
    return directory.Refresh() ? &directory : nullptr;
}

SmartPointer<Bitmap> ImageService::LoadFound(Found const& found) const {
    auto bitmap = Utilities::ResolveComponent<Bitmap>("Bitmap");
    if (bitmap.IsNull() || !bitmap->Load(found.file)) return {};
    if (markImages_) Mark(*bitmap, found.level);
    if (showFileNames_) WriteName(*bitmap, found.file.GetName());
    return bitmap;
}

void ImageService::Mark(Bitmap& bitmap, int level) const {
    auto const width = static_cast<short>(bitmap.GetWidth());
    auto const height = static_cast<short>(bitmap.GetHeight());
    DrawInto(bitmap, [&](PlatformIndependentDeviceContext& context) {
        context.SetPen(LevelColor(level), 1, PlatformIndependentDeviceContext::solid);
        context.DrawRectangle(0, 0, width, height);
        context.DrawLine(0, 0, width, height);
        context.DrawLine(width, 0, 0, height);
    });
}

void ImageService::SetBitmap(String const& name, SmartPointer<Bitmap> bitmap) {
    cache_[name] = bitmap;
    ofLanguage_.erase(name.GetStdString());
}

void ImageService::Clear() {
    cache_ = {};
    ofLanguage_.clear();
}

void ImageService::OnLanguageChanged() {
    for (std::string const& name : ofLanguage_) cache_.Remove(name);
    ofLanguage_.clear();
}

bool ImageService::PrepareForUnload() {
    Clear();
    return true;
}

} // namespace GUI
