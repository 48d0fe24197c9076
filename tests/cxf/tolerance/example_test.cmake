# cmake -DPROGRAM=... -DSOURCE=... -DPAGE=... -DTOLERANCES=... -DSAMPLES=... -P example_test.cmake
#
# The example that the documentation shows is the program that is built, and it works.
cmake_minimum_required(VERSION 3.25)
file(READ "${SOURCE}" source)
file(READ "${PAGE}" page)
string(FIND "${source}" "    auto const tolerance" begin)
string(FIND "${source}" "    return 0;" end)
math(EXPR length "${end} - ${begin}")
string(SUBSTRING "${source}" ${begin} ${length} shown)
string(FIND "${page}" "${shown}" place)
if(begin EQUAL -1 OR place EQUAL -1)
  message(FATAL_ERROR "${PAGE} doesn't show the lines of ${SOURCE}")
endif()
execute_process(COMMAND "${PROGRAM}" "${TOLERANCES}" "${SAMPLES}" "${SAMPLES}"
  OUTPUT_VARIABLE output RESULT_VARIABLE result)
if(NOT result EQUAL 0 OR NOT output MATCHES "TCS01: pass, CIEDE2000 is 0, within 3; dL\\* is 0")
  message(FATAL_ERROR "exit ${result}:\n${output}")
endif()
