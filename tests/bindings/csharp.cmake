# The C# binding: compiled with Mono's compiler, tested with its runtime. Each class of tests has a process, a simulator
# and an address of its own.
set(csharp ${PROJECT_SOURCE_DIR}/bindings/csharp)
if(WIN32)
  tolvex_binding_package(CSharp csharp 127.63.2.1)
  tolvex_binding_test(CSharpPackageInstallsAsAProjectHasIt
    bash ${CMAKE_CURRENT_SOURCE_DIR}/csharp_package_test.sh ${TOLVEX_NATIVE_BUILD}
      ${CMAKE_BINARY_DIR}/tests/bindings/csharp-package 127.63.2.2)
  set_tests_properties(bindings.CSharpPackageInstallsAsAProjectHasIt PROPERTIES FIXTURES_REQUIRED CSharp_package)
  return()
endif()

find_program(TOLVEX_MCS mcs)
find_program(TOLVEX_MONO mono)
set(nunit /usr/lib/cli/nunit.framework-2.6.3/nunit.framework.dll)
if(NOT TOLVEX_MCS OR NOT TOLVEX_MONO OR NOT EXISTS ${nunit})
  message(FATAL_ERROR "mcs, mono or ${nunit} not found. Install the packages mono-mcs and libnunit-framework2.6.3-cil "
    "(or run: ./run setup).")
endif()

set(made ${CMAKE_CURRENT_BINARY_DIR}/csharp)
file(GLOB sources CONFIGURE_DEPENDS ${csharp}/src/*.cs)
file(GLOB tests CONFIGURE_DEPENDS ${csharp}/tests/*.cs)
set(example ${csharp}/examples/checkout/Checkout.cs)
add_custom_command(OUTPUT ${made}/Tolvex.dll
  COMMAND ${csharp}/compile ${made}
  DEPENDS ${csharp}/compile ${sources} COMMENT "Compiling Tolvex.dll" VERBATIM)
add_custom_command(OUTPUT ${made}/Tolvex.Tests.exe
  COMMAND ${TOLVEX_MCS} -langversion:7 -warnaserror -debug -reference:${made}/Tolvex.dll -reference:${nunit}
    -out:${made}/Tolvex.Tests.exe ${tests}
  DEPENDS ${made}/Tolvex.dll ${tests} COMMENT "Compiling Tolvex.Tests.exe" VERBATIM)
add_custom_command(OUTPUT ${made}/Checkout.exe
  COMMAND ${TOLVEX_MCS} -langversion:7 -warnaserror -reference:${made}/Tolvex.dll -out:${made}/Checkout.exe ${example}
  DEPENDS ${made}/Tolvex.dll ${example} COMMENT "Compiling Checkout.exe" VERBATIM)
add_library(csharp_short_of_memory MODULE ${csharp}/tests/native/short_of_memory.c)
target_link_options(csharp_short_of_memory PRIVATE -Wl,--no-as-needed) # all but one function are the library's own
target_link_libraries(csharp_short_of_memory PRIVATE tolvex_dll ${CMAKE_DL_LIBS})
set_target_properties(csharp_short_of_memory PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${made})
add_custom_target(csharp-tests ALL DEPENDS ${made}/Tolvex.Tests.exe ${made}/Checkout.exe)

# tolvex_csharp_test(NAME CLASS [LOCALE]): bindings.CSharpNAME
set(csharp_number 0)
set(csharp_library tolvex_dll)
function(tolvex_csharp_test name class)
  math(EXPR csharp_number "${csharp_number} + 1")
  set(csharp_number ${csharp_number} PARENT_SCOPE)
  set(locale LC_ALL=C.UTF-8)
  if(ARGN)
    tolvex_locale(${ARGN} target)
    add_dependencies(csharp-tests ${target})
    tolvex_in_locale(${ARGN} locale)
  endif()
  set(home ${made}/home/${class})
  file(MAKE_DIRECTORY ${home})
  tolvex_binding_test(CSharp${name} ${TOLVEX_MONO} --debug ${made}/Tolvex.Tests.exe ${class})
  set(environment
    TOLVEX_LIBRARY=$<TARGET_FILE:${csharp_library}>
    ZELKAD_SIM=$<TARGET_FILE:zelkad-sim>
    TOLVEX_TEST_ADDRESS=127.63.1.${csharp_number}
    TOLVEX_EXAMPLE=${made}/Checkout.exe
    TOLVEX_FRAMEWORK_MEMBERS=${csharp}/tests/framework-members.txt
    HOME=${home} XDG_STATE_HOME=${home} ${locale})
  set_tests_properties(bindings.CSharp${name} PROPERTIES ENVIRONMENT "${environment}")
endfunction()

tolvex_csharp_test(Weighing WeighingTests)
tolvex_csharp_test(Readings ReadingTests)
tolvex_csharp_test(Receipts ReceiptTests)
tolvex_csharp_test(Faults FaultTests)
tolvex_csharp_test(Threads ThreadTests)
tolvex_csharp_test(Exports ExportTests)
tolvex_csharp_test(Loading LoadingTests)
tolvex_csharp_test(Framework FrameworkTests)
tolvex_csharp_test(Example ExampleTests)
tolvex_csharp_test(Utf8 Utf8Tests)
tolvex_csharp_test(Gbk GbkTests zh_CN.GBK)
tolvex_csharp_test(Cp1251 Cp1251Tests ru_RU.CP1251)
tolvex_csharp_test(Latin1 Latin1Tests de_DE.ISO-8859-1)

# With a library that fails where the real one hardly can.
set(csharp_library csharp_short_of_memory)
tolvex_csharp_test(Queue QueueTests)
