# The target check_headers compiles each header alone.

set(header_sources "")
file(GLOB_RECURSE headers RELATIVE "${CMAKE_SOURCE_DIR}" CONFIGURE_DEPENDS
  Diagnostics/*.h Utilities/*.h core/*.h cxf/*.h gui/*.h services/*.h inspection/*.h hosts/*.h)
foreach(header IN LISTS headers)
  string(REPLACE "/" "_" name "${header}")
  set(source "${CMAKE_BINARY_DIR}/headers/${name}.cpp")
  if(NOT EXISTS "${source}")
    file(WRITE "${source}" "#include \"${header}\"\n")
  endif()
  list(APPEND header_sources "${source}")
endforeach()
add_library(check_headers OBJECT EXCLUDE_FROM_ALL ${header_sources})
target_compile_options(check_headers PRIVATE -fsyntax-only)
target_link_libraries(check_headers PRIVATE norvelian_options GuiCore cxf Qt6::Widgets)

# The floors hold in every build, not only where someone looks.
add_custom_target(check_layers ALL
  COMMAND ${CMAKE_COMMAND} -DROOT=${CMAKE_SOURCE_DIR} -P ${CMAKE_SOURCE_DIR}/cmake/CheckLayers.cmake
  COMMENT "Checking the floors")
