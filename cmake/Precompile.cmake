# Headers that most units of a target include, compiled once for it: a third off a unit's time. Off at first, since a
# compiler cache gives stale units with them and can't share units among working copies; CCACHE_DISABLE=1 with it.
option(NORVELIAN_PRECOMPILE "Precompile headers" OFF)

set(NORVELIAN_COMMON_HEADERS <algorithm> <cmath> <functional> <map> <memory> <optional> <string> <string_view>
    <utility> <vector>)

# norvelian_precompile(NAME headers...): the common ones and these.
function(norvelian_precompile name)
  if(NORVELIAN_PRECOMPILE)
    target_precompile_headers(${name} PRIVATE ${NORVELIAN_COMMON_HEADERS} ${ARGN})
  endif()
endfunction()
