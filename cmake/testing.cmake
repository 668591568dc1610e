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
if(TOLVEX_SANITIZE)
  target_compile_options(gtest PRIVATE -fsanitize=${TOLVEX_SANITIZE} -O1 -g1)
endif()
add_library(gtest_main STATIC ${GOOGLETEST_SOURCES}/googletest/src/gtest_main.cc)
target_link_libraries(gtest_main PUBLIC gtest)

include(GoogleTest)

# Unit tests: one program, one CTest test for each GoogleTest test.
#   tolvex_unit_test(NAME SOURCES file... [LIBRARIES target...] [LABELS label...])
function(tolvex_unit_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES;LABELS;PROPERTIES" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests/${name})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE tolvex::options ${arg_LIBRARIES} gtest_main)
  gtest_discover_tests(${name} NO_PRETTY_VALUES TEST_PREFIX ${name}. DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120
    WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/tests/${name}
    PROPERTIES TIMEOUT 120 LABELS "${arg_LABELS}" ${arg_PROPERTIES})
endfunction()
