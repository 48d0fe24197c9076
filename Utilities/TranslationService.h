#pragma once

#include "Utilities/Tools/Vector.h"
#include "core/base/String.h"
#include "core/component/Component.h"

namespace Utilities {

/// What the component "LanguageService" offers. GUI thread only.
///
/// The key of a text is the text itself in the base language; a key without a translation is shown as it
/// is. Elements translate through `LanguageServiceInterface` and don't hold the service.
///
/// Change of language. When what `GetTranslation` gives may have changed while the program runs, the
/// service sends the message "LanguageChanged" through the "MessageService", with the language's name;
/// it has been sent when `SetLanguage` or `SetMarkTexts` returns. A message has one receiver, and this
/// one's is the application: it tells each of its windows, windows and boxes tell their children, and
/// then the windows are laid out again and repainted, since texts have other widths now. An element that
/// keeps translated text keeps the key beside it and translates again when it is told; one that
/// translates while it paints has nothing to do. What isn't open needs no notice.
class TranslationService : public Component {
public:
    static constexpr char const* changedMessage = "LanguageChanged";

    TranslationService();
    TranslationService(TranslationService const&) = delete;
    TranslationService& operator=(TranslationService const&) = delete;
    ~TranslationService() override;

    /// The text in the current language, with line breaks for "<br>". The first call may throw what
    /// `Load` throws.
    virtual String GetTranslation(String const& key) = 0;
    /// Throws `OutOfRangeException` "Language not available". Neither the settings nor `CurrentLanguage`
    /// follow.
    virtual void SetLanguage(String const& name) = 0;
    virtual String GetLanguage() const = 0;
    virtual Vector<String> GetLanguages() = 0;
    /// The key whose translation this text is; the text itself, without marks, if there is none.
    virtual String GetKey(String const& text) = 0;
    /// Marks show where a text comes from: [translated], *not translated*.
    virtual void SetMarkTexts(bool mark) = 0;
    virtual bool GetMarkTexts() const = 0;
    virtual bool IsLoaded() const = 0;
    /// Throws `ResourceNotAvailableException` with a text for the user, once.
    virtual void Load() = 0;
};

} // namespace Utilities
