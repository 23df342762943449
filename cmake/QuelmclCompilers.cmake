# Some checks ask compilers themselves, not programs that they made, and ask every compiler that this machine has: g++ and clang++.
# Sets testCompilers to the names of those that can compile for the width of this build, testCompiler_<name> to their paths, and
# testWidthFlag to the flag for the width.
math(EXPR testWidth "${CMAKE_SIZEOF_VOID_P} * 8")
set(testWidthFlag -m${testWidth})

set(testCompilers)
set(trial ${PROJECT_BINARY_DIR}/CMakeFiles/compiler_trial.cpp)
file(WRITE ${trial} "#include <string>\n")
foreach(name IN ITEMS g++ clang++)
  find_program(QUELMCL_TEST_COMPILER_${name} ${name} DOC "The ${name} of the checks that ask compilers")
  mark_as_advanced(QUELMCL_TEST_COMPILER_${name})
  set(testCompiler_${name} ${QUELMCL_TEST_COMPILER_${name}})
  set(result missing)
  if(testCompiler_${name})
    execute_process(COMMAND ${testCompiler_${name}} ${testWidthFlag} -std=c++11 -fsyntax-only ${trial}
      RESULT_VARIABLE result OUTPUT_QUIET ERROR_QUIET)
  endif()
  if(result STREQUAL "0")
    list(APPEND testCompilers ${name})
  else()
    message(STATUS "No ${name} for ${testWidth} bits here: the checks of expressions and layouts are made without it")
  endif()
endforeach()
