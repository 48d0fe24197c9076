#pragma once

/// Everything that a host needs to load the plug-in and show a described window.

#include "Utilities/NamingService.h"
#include "Utilities/Plugin.h"
#include "Utilities/ProgramDirectory.h"
#include "gui/elements/DialogHandler.h"
#include "gui/elements/GUIElement.h"
#include "gui/elements/application/Application.h"
#include "gui/elements/description/GUIDescriptionReader.h"
#include "gui/elements/drawing/PlatformIndependentWindowID.h"
