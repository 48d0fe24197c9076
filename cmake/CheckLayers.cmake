# cmake -DROOT=<tree> -P CheckLayers.cmake
#
# Holds the architecture: no include goes up a floor, no two folders include each other, and only files
# whose name ends in _PC or begins with CNorvelian name the platform. Fails with one line a fault.

cmake_minimum_required(VERSION 3.25)

set(floor_1 Diagnostics Utilities Utilities/Tools core/base core/values core/component core/creators)
set(floor_2 cxf/conditions cxf/colorimetry cxf/samples cxf/files cxf/tolerance cxf/print cxf/verification)
set(floor_3 gui/elements/colour gui/elements/drawing gui/elements/description gui/elements
  gui/elements/application)
set(floor_4 core/plugin gui/layout gui/shell gui/controls gui/charts gui/colour gui/press
  gui/grid/model gui/grid/edit gui/grid/controls gui/grid/view gui/grid/printing gui/grid gui/tree gui/files gui/platform gui/report services
  services/clipboard services/information services/programs inspection)

function(floor_of folder result)
  foreach(number 1 2 3 4)
    if(folder IN_LIST floor_${number})
      set(${result} ${number} PARENT_SCOPE)
      return()
    endif()
  endforeach()
  if(folder MATCHES "^hosts/")
    set(${result} 5 PARENT_SCOPE)
  else()
    set(${result} 0 PARENT_SCOPE)
  endif()
endfunction()

set(faults "")
set(edges "")
file(GLOB_RECURSE files RELATIVE "${ROOT}"
  "${ROOT}/Diagnostics/*" "${ROOT}/Utilities/*" "${ROOT}/core/*" "${ROOT}/cxf/*" "${ROOT}/gui/*"
  "${ROOT}/services/*" "${ROOT}/inspection/*" "${ROOT}/hosts/*")
foreach(file IN LISTS files)
  if(NOT file MATCHES "\\.(h|cpp|inc)$")
    continue()
  endif()
  get_filename_component(folder "${file}" DIRECTORY)
  get_filename_component(name "${file}" NAME)
  floor_of("${folder}" floor)
  if(floor EQUAL 0)
    list(APPEND faults "${file}: the folder is on no floor")
  endif()
  file(STRINGS "${ROOT}/${file}" includes REGEX "^ *# *include")
  foreach(include IN LISTS includes)
    if(NOT name MATCHES "(_PC\\.(h|cpp)$)|^CNorvelian" AND include MATCHES
        "[<\"](Q[A-Z][A-Za-z]*|Qt[A-Za-z]*/.*|jpeglib\\.h|windows\\.h|unistd\\.h|pthread\\.h|dlfcn\\.h|fcntl\\.h|signal\\.h|sys/[a-z]+\\.h|X11/.*|xcb/.*)[>\"]")
      list(APPEND faults "${file}: names the platform: ${include}")
    endif()
    if(NOT include MATCHES "\"([^\"]+)\"")
      continue()
    endif()
    set(target "${CMAKE_MATCH_1}")
    get_filename_component(target_folder "${target}" DIRECTORY)
    floor_of("${target_folder}" target_floor)
    if(target_floor EQUAL 0)
      if(EXISTS "${ROOT}/${folder}/${target}" OR NOT EXISTS "${ROOT}/${target}")
        continue()
      endif()
      list(APPEND faults "${file}: includes ${target}, which is on no floor")
    elseif(target_floor GREATER floor)
      list(APPEND faults "${file}: includes ${target}, which is on a higher floor")
    elseif(NOT target_folder STREQUAL folder)
      list(APPEND edges "${folder}>${target_folder}")
    endif()
  endforeach()
endforeach()

list(REMOVE_DUPLICATES edges)
foreach(edge IN LISTS edges)
  string(REGEX REPLACE "(.*)>(.*)" "\\2>\\1" back "${edge}")
  if(back IN_LIST edges AND edge STRLESS back)
    list(APPEND faults "two folders include each other: ${edge}")
  endif()
endforeach()

if(faults)
  list(JOIN faults "\n" text)
  message(FATAL_ERROR "The layer rules are broken:\n${text}")
endif()
