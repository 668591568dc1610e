# GoogleTest is built from the distribution's sources, so that it carries the same sanitizers and
# serves the cross build as well.
find_path(GOOGLETEST_SOURCES googletest/src/gtest-all.cc PATHS /usr/src/googletest
  NO_CMAKE_FIND_ROOT_PATH NO_DEFAULT_PATH)
if(NOT GOOGLETEST_SOURCES)
  message(FATAL_ERROR "GoogleTest's sources not found. Install the package googletest "
    "(or run: ./run setup).")
endif()
add_library(gtest STATIC ${GOOGLETEST_SOURCES}/googletest/src/gtest-all.cc)
target_include_directories(gtest SYSTEM PUBLIC ${GOOGLETEST_SOURCES}/googletest/include
  PRIVATE ${GOOGLETEST_SOURCES}/googletest)
target_link_libraries(gtest PUBLIC Threads::Threads)
target_compile_options(gtest PRIVATE -O0 -g1)
if(TOLVEX_SANITIZE)
  target_compile_options(gtest PRIVATE -fsanitize=${TOLVEX_SANITIZE})
endif()
add_library(gtest_main STATIC ${GOOGLETEST_SOURCES}/googletest/src/gtest_main.cc)
target_link_libraries(gtest_main PUBLIC gtest)

include(GoogleTest)

option(TOLVEX_FEW_PROCESSES "Run tests in one process that need none of their own" OFF)
set(TOLVEX_TEST_LIMIT 120 CACHE STRING "Seconds that a unit test may take")
set(TOLVEX_PROGRAM_LIMIT 300 CACHE STRING "Seconds that a program of them may take where it runs as one test")

include(cmake/locales.cmake)

# The headers that every test includes, compiled once. A program of its own, since a precompiled header
# serves only what is compiled with the same options.
add_executable(test_headers ${PROJECT_SOURCE_DIR}/cmake/test_headers.cpp)
target_link_libraries(test_headers PRIVATE tolvex::options gtest)
set_target_properties(test_headers PROPERTIES TOLVEX_COMPILE_PLAIN ON)
target_precompile_headers(test_headers PRIVATE <gtest/gtest.h> <filesystem> <functional> <string> <thread> <vector>)

# A program of tests, without any CTest test of it yet.
#   tolvex_test_program(NAME SOURCES file... [LIBRARIES target...])
function(tolvex_test_program name)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  tolvex_unity(${name})
  set_target_properties(${name} PROPERTIES TOLVEX_COMPILE_PLAIN ON
    RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests/${name})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE tolvex::options ${arg_LIBRARIES} gtest_main)
  target_precompile_headers(${name} REUSE_FROM test_headers)
endfunction()

# One CTest test for each GoogleTest test of a program, or for each that the filter names. With LOCALE
# the tests run in that locale, which is made for them (see locales.cmake), and their names tell it;
# with ENVIRONMENT they run with those variables, and PREFIX keeps their names apart. May be called
# several times for a program.
#   tolvex_discover_tests(PROGRAM [PREFIX text] [FILTER pattern] [LOCALE locale]
#                         [ENVIRONMENT variable=value...] [LABELS label...] [PROPERTIES ...])
function(tolvex_discover_tests name)
  cmake_parse_arguments(arg "" "PREFIX;FILTER;LOCALE" "ENVIRONMENT;LABELS;PROPERTIES" ${ARGN})
  set(prefix ${name}.${arg_PREFIX})
  if(arg_LOCALE)
    tolvex_locale(${arg_LOCALE} locale)
    add_dependencies(${name} ${locale})
    tolvex_in_locale(${arg_LOCALE} environment)
    list(APPEND arg_ENVIRONMENT ${environment})
    string(APPEND prefix ${arg_LOCALE}.)
  endif()
  gtest_discover_tests(${name} NO_PRETTY_VALUES TEST_PREFIX ${prefix} TEST_FILTER "${arg_FILTER}"
    TEST_LIST ${prefix}tests DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120
    WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/tests/${name}
    PROPERTIES TIMEOUT ${TOLVEX_TEST_LIMIT} LABELS "${arg_LABELS}" ${arg_PROPERTIES})
  if(arg_ENVIRONMENT)
    # Several variables are a list, which does not get through the PROPERTIES above in one piece.
    set(file ${CMAKE_CURRENT_BINARY_DIR}/${prefix}environment.cmake)
    file(CONFIGURE OUTPUT ${file} @ONLY CONTENT [=[
foreach(test IN LISTS @prefix@tests)
  set_tests_properties(${test} PROPERTIES ENVIRONMENT [==[@arg_ENVIRONMENT@]==])
endforeach()
]=])
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${file})
  endif()
endfunction()

# Unit tests: a program, and all of its tests as CTest tests. Takes what the two above take. With
# ONE_PROCESS_WHERE_SLOW they are one CTest test where a process takes long to start, under Wine and with
# sanitizers: for tests that leave nothing behind in their process.
function(tolvex_unit_test name)
  cmake_parse_arguments(arg "ONE_PROCESS_WHERE_SLOW" "PREFIX;FILTER;LOCALE"
    "SOURCES;LIBRARIES;ENVIRONMENT;LABELS;PROPERTIES" ${ARGN})
  tolvex_test_program(${name} SOURCES ${arg_SOURCES} LIBRARIES ${arg_LIBRARIES})
  if(arg_ONE_PROCESS_WHERE_SLOW AND (CMAKE_CROSSCOMPILING_EMULATOR OR TOLVEX_SANITIZE OR TOLVEX_FEW_PROCESSES))
    add_test(NAME ${name} COMMAND ${name} --gtest_brief=1
      WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/tests/${name})
    # Long ones first: the last one would have a processor for itself.
    set_tests_properties(${name} PROPERTIES TIMEOUT ${TOLVEX_PROGRAM_LIMIT} LABELS "${arg_LABELS}"
      COST 100)
    return()
  endif()
  tolvex_discover_tests(${name} PREFIX "${arg_PREFIX}" FILTER "${arg_FILTER}" LOCALE "${arg_LOCALE}"
    ENVIRONMENT ${arg_ENVIRONMENT} LABELS ${arg_LABELS} PROPERTIES ${arg_PROPERTIES})
endfunction()
