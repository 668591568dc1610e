# The unit for Free Pascal and Delphi: compiled in each mode, with the compiler for this system or for Windows,
# and run against the library and the simulator.
set(pascal ${PROJECT_SOURCE_DIR}/bindings/pascal)
set(pascal_programs ${CMAKE_CURRENT_BINARY_DIR}/pascal)
if(WIN32)
  set(pascal_system windows)
  set(pascal_suffix .exe)
  set(pascal_network 2)
  set(pascal_other_library ${TOLVEX_NATIVE_BUILD}/bin/libtolvex_dll.so)
else()
  set(pascal_system linux)
  set(pascal_suffix "")
  set(pascal_network 1)
  set(pascal_other_library none)
endif()

tolvex_binding_test(PascalCompilesInEachMode ${pascal}/tests/compile ${pascal_system} ${pascal_programs})
set_tests_properties(bindings.PascalCompilesInEachMode PROPERTIES FIXTURES_SETUP pascal_programs)

# tolvex_pascal_suite(NAME MODE SUITE ADDRESS CODE-PAGE [LOCALE]): one process
function(tolvex_pascal_suite name mode suite address code_page)
  tolvex_binding_test(Pascal${name} ${pascal}/tests/run ${pascal_programs}/${mode}/binding_test${pascal_suffix} ${suite}
    ${code_page} 127.64.${pascal_network}.${address} ${pascal_programs}/of-${name} $<TARGET_FILE:tolvex_dll> ${pascal_other_library}
    $<TARGET_FILE:zelkad-sim> ${CMAKE_CROSSCOMPILING_EMULATOR})
  set(environment LC_ALL=C.UTF-8)
  if(ARGN)
    tolvex_locale(${ARGN} locale)
    add_dependencies(pascal_locales ${locale})
    tolvex_in_locale(${ARGN} environment)
  endif()
  set_tests_properties(bindings.Pascal${name} PROPERTIES FIXTURES_REQUIRED pascal_programs
    ENVIRONMENT "WINEPREFIX=${TOLVEX_BINDINGS_WINDOWS};${environment}")
endfunction()

add_custom_target(pascal_locales ALL)
set(pascal_address 0)
foreach(pascal_mode objfpc delphi)
  string(SUBSTRING ${pascal_mode} 0 1 pascal_first)
  string(TOUPPER ${pascal_first} pascal_first)
  string(SUBSTRING ${pascal_mode} 1 -1 pascal_rest)
  foreach(pascal_suite Weighing Printing Receipts Faults Threads Exports Replies AsLumidesk Loading)
    math(EXPR pascal_address "${pascal_address} + 1")
    tolvex_pascal_suite(${pascal_first}${pascal_rest}${pascal_suite} ${pascal_mode} ${pascal_suite} ${pascal_address} UTF-8)
  endforeach()
endforeach()
if(WIN32)
  tolvex_pascal_suite(CodePage1252 objfpc CodePages 31 "Windows 1252" de_DE.UTF-8)
  tolvex_pascal_suite(CodePage1251 delphi CodePages 32 "Windows 1251" ru_RU.UTF-8)
  tolvex_binding_package(Pascal pascal 127.64.3.1)
else()
  tolvex_pascal_suite(CodePageLatin1 objfpc CodePages 31 ISO-8859-1 de_DE.ISO-8859-1)
  tolvex_pascal_suite(CodePageGbk delphi CodePages 32 GBK zh_CN.GBK)
  tolvex_pascal_suite(CodePageCyrillic objfpc CodePages 33 CP1251 ru_RU.CP1251)
  tolvex_binding_test(PascalExampleSellsAndPrintsAgainAfterThePaperEnded ${pascal}/tests/example_test
    ${pascal_programs}/objfpc/checkout $<TARGET_FILE:tolvex_dll> $<TARGET_FILE:zelkad-sim> 127.64.1.41
    ${pascal_programs}/of-example)
  set_tests_properties(bindings.PascalExampleSellsAndPrintsAgainAfterThePaperEnded PROPERTIES
    FIXTURES_REQUIRED pascal_programs)
endif()
