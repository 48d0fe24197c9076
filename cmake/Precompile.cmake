# Headers that most units of a target include, compiled once for it. A third off a unit's time; but a compiler cache
# can't share units among working copies then: switch it off there.
option(NORVELIAN_PRECOMPILE "Precompile headers" ON)

set(NORVELIAN_COMMON_HEADERS <algorithm> <cmath> <functional> <map> <memory> <optional> <string> <string_view>
    <utility> <vector>)

# norvelian_precompile(NAME headers...): the common ones and these.
function(norvelian_precompile name)
  if(NORVELIAN_PRECOMPILE)
    target_precompile_headers(${name} PRIVATE ${NORVELIAN_COMMON_HEADERS} ${ARGN})
  endif()
endfunction()
