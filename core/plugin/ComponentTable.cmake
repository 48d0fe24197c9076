# The plug-in's sources. The rows that hold creators stand in the order of the table of components:
# static initialisers run in link order, so this order is the order of registration. The first three
# components of the table come first; the rest is alphabetical by component.
set(NORVELIAN_COMPONENT_SOURCES
  gui/shell/AdvancedControlImpl_PC.cpp
  core/plugin/BaseElements.cpp
  gui/shell/ApplicationImplementation_PC.cpp
  services/ColorLibraryTextAdapter.cpp
  gui/shell/Dialog_PC.cpp
  gui/layout/FrameBox.cpp
  gui/layout/GumBox.cpp
  gui/layout/HBox.cpp
  services/LanguageService.cpp
  gui/layout/LoopBox.cpp
  gui/shell/MessageService_PC.cpp
  services/MutexImplementation_PC.cpp
  gui/platform/PlatformIndependentWindowID_PC.cpp
  services/Preferences_PC.cpp
  services/SelectionService.cpp
  services/TextAdapter.cpp
  services/ThreadImplementation_PC.cpp
  gui/layout/VBox.cpp
  gui/shell/Window_PC.cpp
)

# Units without a creator, and last the exports.
set(NORVELIAN_SUPPORT_SOURCES
  gui/layout/GUILayoutElementBox.cpp
  gui/layout/LoopBoxCalculator.cpp
  gui/layout/SpaceSharing.cpp
  gui/platform/EllipseFigures_PC.cpp
  gui/platform/Fonts_PC.cpp
  gui/platform/KeyCodes_PC.cpp
  gui/platform/PlatformIndependentDeviceContext_PC.cpp
  gui/platform/RasterSurface.cpp
  gui/platform/TextConversion_PC.cpp
  gui/shell/Accelerators.cpp
  gui/shell/CNorvelianAdvancedControl.cpp
  gui/shell/CNorvelianDialog.cpp
  gui/shell/CNorvelianWnd.cpp
  gui/shell/HelpFile.cpp
  gui/shell/MessageService.cpp
  gui/shell/PaintScope_PC.cpp
  gui/shell/ShellCommand.cpp
  gui/shell/ShellCommandListener_PC.cpp
  gui/shell/TopLevel_PC.cpp
  gui/shell/WindowAttributes.cpp
  services/IniText.cpp
  services/LanguageFiles.cpp
  services/LanguageTexts.cpp
  services/RobustMutex_PC.cpp
  services/ThreadKiller_PC.cpp
  core/plugin/ComponentFactory.cpp
  core/plugin/Exports.cpp
)
