# How tests are built and registered.

# A process for each test suite (what stands before the point in a test's name) keeps suites from leaning on each other. A process for
# each test would cost minutes: the test framework takes some 20 ms to set up a program of a thousand tests, whichever of them runs. Where
# starting a process is slower still, as with sanitizers, one process runs all tests of a folder, which also shows what earlier tests do
# to later ones.
option(QUELMCL_TEST_WHOLE_PROGRAMS "Run all tests of a folder in one process, as one test" OFF)

# The locales that tests run in beyond C and C.UTF-8 are compiled into the build folder: no machine needs to have them.
set(testLocales ${PROJECT_BINARY_DIR}/locales)
if(NOT TARGET quelmcl_locales)
  add_custom_command(
    OUTPUT ${testLocales}/made
    COMMAND bash ${PROJECT_SOURCE_DIR}/tests/support/make_locales.sh ${testLocales}
    COMMAND ${CMAKE_COMMAND} -E touch ${testLocales}/made
    DEPENDS ${PROJECT_SOURCE_DIR}/tests/support/make_locales.sh
    COMMENT "Compiling the locales of the tests"
    VERBATIM)
  add_custom_target(quelmcl_locales DEPENDS ${testLocales}/made)
endif()

# What a test may rely on: the C locale, this build's catalogs and locales, and none of the caller's own settings for either.
set(testEnvironment LANG=C LC_ALL=C "NLSPATH=${quelmcl_NLSPATH}" "LOCPATH=${testLocales}")
# Neither traces nor catalogs as the caller of the tests has set them.
set(testEnvironmentChanges "KOLTA MSGFILE=unset:" LANGUAGE=unset:)
foreach(setting IN ITEMS TRACE TRACETO TRACEFILE CHECKSTACK)
  list(APPEND testEnvironmentChanges "KOLTA ${setting}=unset:" KOLTA_${setting}=unset:)
endforeach()

# quelmcl_add_test(<folder> SOURCES <file>... [LIBRARY_SOURCES <file>...] [LIBRARY <target>] [LOCALES <locale>...])
#
# Builds the test program of a folder and registers each of its suites once for every locale: plainly for C, with "utf8/" before the
# name for C.UTF-8, and likewise for the others. A folder without sources yet is skipped. LIBRARY_SOURCES, relative to src/, are
# compiled into the program: what the library does not export is tested that way. LIBRARY is tested instead of the library that is
# shipped.
function(quelmcl_add_test folder)
  cmake_parse_arguments(arg "" "LIBRARY" "SOURCES;LIBRARY_SOURCES;LOCALES" ${ARGN})
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "quelmcl_add_test(${folder}): unknown arguments: ${arg_UNPARSED_ARGUMENTS}")
  endif()
  if(NOT arg_SOURCES)
    return()
  endif()
  if(NOT arg_LOCALES)
    set(arg_LOCALES C C.UTF-8)
  endif()
  if(NOT arg_LIBRARY)
    set(arg_LIBRARY quelmcl::quelmcl)
  endif()

  # The library is tested as it is shipped; the tests themselves gain nothing from optimisation but a longer build.
  set_property(SOURCE ${arg_SOURCES} APPEND PROPERTY COMPILE_OPTIONS -O0)

  set(program test_${folder})
  list(TRANSFORM arg_LIBRARY_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/src/)
  add_executable(${program} ${arg_SOURCES} ${arg_LIBRARY_SOURCES})
  quelmcl_own_target(${program})
  target_include_directories(${program} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/tests/support)
  if(arg_LIBRARY_SOURCES)
    target_include_directories(${program} PRIVATE ${PROJECT_SOURCE_DIR}/src)
  endif()
  target_link_libraries(${program} PRIVATE ${arg_LIBRARY} quelmcl_test_main)
  add_dependencies(${program} quelmcl_catalogs quelmcl_locales)
  set(suites ${CMAKE_CURRENT_BINARY_DIR}/${program}_suites.cmake)
  add_custom_command(TARGET ${program} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:${program}> -DOUTPUT=${suites}
      -P ${PROJECT_SOURCE_DIR}/cmake/QuelmclTestSuites.cmake
    BYPRODUCTS ${suites}
    VERBATIM)

  foreach(locale IN LISTS arg_LOCALES)
    if(locale STREQUAL "C")
      set(prefix ${folder}/)
    else()
      string(TOLOWER ${locale} prefix)
      string(REGEX REPLACE "^c\\.|[^a-z0-9]" "" prefix ${prefix})
      set(prefix ${prefix}/${folder}/)
    endif()
    set(environment ${testEnvironment} QUELMCL_TEST_LOCALE=${locale})
    if(QUELMCL_TEST_WHOLE_PROGRAMS)
      quelmcl_add_command_test(${prefix}all ${program})
      set_tests_properties(${prefix}all PROPERTIES LABELS ${folder} SKIP_RETURN_CODE 77 ENVIRONMENT "${environment}")
      continue()
    endif()

    # The names are known when ctest starts, and so is the first moment for properties that are lists.
    string(MAKE_C_IDENTIFIER ${prefix}tests.cmake registration)
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${registration} @ONLY CONTENT [[
set(suites)
include("@CMAKE_CURRENT_BINARY_DIR@/@program@_suites.cmake" OPTIONAL)
if(NOT suites)
  add_test("@prefix@program_that_is_not_built" "@program@ is not built")
endif()
foreach(suite IN LISTS suites)
  add_test("@prefix@${suite}" "@CMAKE_CURRENT_BINARY_DIR@/@program@" "--gtest_filter=${suite}.*")
  set_tests_properties("@prefix@${suite}" PROPERTIES
    TIMEOUT 300 LABELS "@folder@" SKIP_RETURN_CODE 77 WORKING_DIRECTORY "@CMAKE_CURRENT_BINARY_DIR@"
    ENVIRONMENT "@environment@"
    ENVIRONMENT_MODIFICATION "@testEnvironmentChanges@")
endforeach()
]])
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${CMAKE_CURRENT_BINARY_DIR}/${registration})
  endforeach()
endfunction()

# quelmcl_add_command_test(<name> <command> [<argument>...]): a test that is a program or a script, in the same environment. Scripts
# are given to bash by name, so that they need no execute permission.
function(quelmcl_add_command_test name)
  add_test(NAME ${name} COMMAND ${ARGN})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT 900
    ENVIRONMENT "${testEnvironment}"
    ENVIRONMENT_MODIFICATION "${testEnvironmentChanges}")
endfunction()
