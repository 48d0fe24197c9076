# The plug-in's sources. The rows that hold creators stand in the order of the table of components:
# static initialisers run in link order, so this order is the order of registration. The first three
# components of the table come first; the rest is alphabetical by component.
set(NORVELIAN_COMPONENT_SOURCES
  gui/shell/MessageService_PC.cpp
  services/MutexImplementation_PC.cpp
  services/Preferences_PC.cpp
  services/ThreadImplementation_PC.cpp
)

# Units without a creator, and last the exports.
set(NORVELIAN_SUPPORT_SOURCES
  gui/shell/MessageService.cpp
  services/IniText.cpp
  services/RobustMutex_PC.cpp
  services/ThreadKiller_PC.cpp
  core/plugin/ComponentFactory.cpp
  core/plugin/Exports.cpp
)
