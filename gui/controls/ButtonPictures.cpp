#include "gui/controls/ButtonPictures.h"

#include "Utilities/NamingService.h"
#include "gui/elements/drawing/ImageServiceInterface.h"

namespace GUI {

using Utilities::SmartPointer;
using Utilities::String;

namespace {

constexpr char const* suffixes[] = {"U", "D", "F", "X", "U2"};

/// What the service gives for names that it doesn't know counts as none.
class KnownPictures {
public:
    KnownPictures() {
        if (!Utilities::NamingService::Instance()->IsRegistered("ImageService")) return;
        service_ = Utilities::ResolveComponent<ImageServiceInterface>("ImageService");
        unknown_ = service_->GetBitmap("UnknownBitmap");
    }
    SmartPointer<Bitmap> Get(String const& name) const {
        if (service_.IsNull() || !service_->HasBitmap(name)) return {};
        auto const picture = service_->GetBitmap(name);
        return picture.Get() == unknown_.Get() ? SmartPointer<Bitmap>() : picture;
    }
    SmartPointer<Bitmap> const& GetUnknown() const { return unknown_; }

private:
    SmartPointer<ImageServiceInterface> service_;
    SmartPointer<Bitmap> unknown_;
};

} // namespace

void ButtonPictures::Load(String const& caption) {
    KnownPictures const known;
    for (std::size_t i = 0; i < count; ++i) pictures_[i] = known.Get(caption + suffixes[i]);
    auto& normal = pictures_[static_cast<std::size_t>(Kind::Normal)];
    if (normal.IsNull()) normal = known.Get(caption);
    if (normal.IsNull()) normal = known.GetUnknown();
}

ButtonPictures::Kind ButtonPictures::Choose(ButtonState const& state) const {
    bool const unchecked = state.toggle && !state.checked && Has(Kind::SecondNormal);
    Kind const start = unchecked ? Kind::SecondNormal : Kind::Normal;
    if (state.selected && Has(Kind::Selected)) return Kind::Selected;
    if (state.focused && Has(Kind::Focused)) return unchecked ? Kind::SecondNormal : Kind::Focused;
    if (state.disabled && Has(Kind::Disabled)) return Kind::Disabled;
    return start;
}

} // namespace GUI
