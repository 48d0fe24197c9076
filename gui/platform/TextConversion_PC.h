#pragma once

#include "core/base/String.h"

#include <QString>

namespace GUI {

/// The one place where the system's bytes become the platform's text and back: well-formed UTF-8
/// sequences are UTF-8, and any other byte is read as Windows-1252.
QString ToPlatformText(Utilities::String const& text);
/// The same for a text that is only measured and drawn: what is behind the first bytes that
/// `Utilities::Limits` allows for it could not be seen, takes long to shape, and becomes an ellipsis.
QString ToShownText(Utilities::String const& text);
/// Always UTF-8.
Utilities::String FromPlatformText(QString const& text);
/// A tool tip that shows its text as it is: texts come from files too, and what looks like markup in them
/// could load pictures.
QString AsPlainToolTip(QString const& text);

} // namespace GUI
