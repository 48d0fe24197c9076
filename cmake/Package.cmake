# What an installed copy offers to other CMake projects.

include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/Norvelian")
configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/NorvelianConfig.cmake.in" "${CMAKE_BINARY_DIR}/NorvelianConfig.cmake"
  INSTALL_DESTINATION "${package_dir}"
  PATH_VARS CMAKE_INSTALL_LIBDIR)
write_basic_package_version_file("${CMAKE_BINARY_DIR}/NorvelianConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_BINARY_DIR}/NorvelianConfig.cmake" "${CMAKE_BINARY_DIR}/NorvelianConfigVersion.cmake"
  DESTINATION "${package_dir}")
install(EXPORT NorvelianTargets NAMESPACE Norvelian:: FILE NorvelianTargets.cmake DESTINATION "${package_dir}")

# The headers that hosts call: those of the floors they build on. None of what the platform's classes or the colour library keep to themselves: its parsers, tables and kernels.
set(private_headers "cxf/(verification/Checks|files/(AttributeNotes|Cgats|ConditionWords|ReadProgress|Utf8|Xml)|colorimetry/(Illuminants|Kernels|Lagrange|Resolved|Tables))[^/]*[.]h$")
foreach(folder Diagnostics Utilities core cxf gui/elements)
  cmake_path(GET folder PARENT_PATH parent)
  install(DIRECTORY "${CMAKE_SOURCE_DIR}/${folder}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/norvelian/${parent}"
    FILES_MATCHING PATTERN "*.h" PATTERN "*_PC.h" EXCLUDE PATTERN "CNorvelian*.h" EXCLUDE
    REGEX "${private_headers}" EXCLUDE)
endforeach()
install(FILES "${CMAKE_SOURCE_DIR}/README.md" DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY "${CMAKE_SOURCE_DIR}/docs/" DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY "${CMAKE_SOURCE_DIR}/LICENSES" DESTINATION ${CMAKE_INSTALL_DOCDIR})
