# cmake -DPROGRAM=<test program> -DOUTPUT=<file> -P QuelmclTestSuites.cmake: writes a file that sets `suites` to the names of the test
# suites of a program, as they stand in the program's own list of its tests.
execute_process(COMMAND ${PROGRAM} --gtest_list_tests OUTPUT_VARIABLE list COMMAND_ERROR_IS_FATAL ANY)

# A suite is a line that is not indented; its name ends with a point, and the type behind some of them is a comment.
string(REGEX REPLACE "[][;]" "" list "${list}")
string(REGEX MATCHALL "(^|\n)[^ \n]+\\." lines "${list}")
set(suites)
foreach(line IN LISTS lines)
  string(REGEX REPLACE "^\n|\\.$" "" suite "${line}")
  list(APPEND suites "${suite}")
endforeach()
if(NOT suites)
  message(FATAL_ERROR "${PROGRAM} has no tests")
endif()
file(WRITE ${OUTPUT} "set(suites ${suites})\n")
