# The plug-in's sources. The rows that hold creators stand in the order of the table of components:
# static initialisers run in link order, so this order is the order of registration. The first three
# components of the table come first; the rest is alphabetical by component.
set(NORVELIAN_COMPONENT_SOURCES
  core/plugin/BaseElements.cpp
  gui/layout/FrameBox.cpp
  gui/layout/GumBox.cpp
  gui/layout/HBox.cpp
  gui/layout/LoopBox.cpp
  gui/layout/VBox.cpp
)

# Units without a creator, and last the exports.
set(NORVELIAN_SUPPORT_SOURCES
  gui/layout/GUILayoutElementBox.cpp
  gui/layout/LoopBoxCalculator.cpp
  gui/layout/SpaceSharing.cpp
  core/plugin/ComponentFactory.cpp
  core/plugin/Exports.cpp
)
