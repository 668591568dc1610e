# The Python binding: its own tests (unittest) natively, its wheels in the Windows build, which has both libraries.
set(python ${PROJECT_SOURCE_DIR}/bindings/python)

# tolvex_python_test(NAME FILE NUMBER [SETTING...]): a file of tests as a process of its own, with an address of its
# own, a folder of its own for the log, and further environment variables.
function(tolvex_python_test name file number)
  set(folder ${CMAKE_BINARY_DIR}/tests/bindings/python-${number})
  file(MAKE_DIRECTORY ${folder})
  tolvex_binding_test(Python${name} ${TOLVEX_PYTHON} -W error -m unittest -v ${file})
  set_tests_properties(bindings.Python${name} PROPERTIES
    WORKING_DIRECTORY ${python}/tests
    ENVIRONMENT "TOLVEX_LIBRARY=$<TARGET_FILE:tolvex_dll>;ZELKAD_SIM=$<TARGET_FILE:zelkad-sim>;TOLVEX_TEST_ADDRESS=127.61.1.${number};PYTHONPATH=${python}/src;PYTHONDONTWRITEBYTECODE=1;XDG_STATE_HOME=${folder};HOME=${folder};LC_ALL=C.UTF-8;${ARGN}")
endfunction()

if(NOT WIN32)
  tolvex_python_test(Weighs test_weighing 1)
  tolvex_python_test(PrintsReceipts test_receipt 2)
  tolvex_python_test(KeepsTheOrder test_order 3)
  tolvex_python_test(HasEveryExport test_exports 4)
  tolvex_python_test(LoadsTheLibrary test_loading 5)
  tolvex_python_test(KnowsEncodings test_encoding 6)
  tolvex_python_test(OutlivesFaults test_faults 8)
  tolvex_python_test(SellsAsItsExampleShows test_example 9)
  tolvex_python_test(HasSourcesForEveryVersion test_sources 14)
  tolvex_python_test(TellsWhatToDo test_errors 15)
  tolvex_python_test(KeepsTextsInUtf8 test_code_pages 10)
  set(number 10)
  set(locales)
  foreach(locale zh_CN.GBK ru_RU.CP1251 de_DE.ISO-8859-1)
    string(REGEX REPLACE "^[^.]+\\." "" charset ${locale})
    string(REPLACE "-" "" name ${charset})
    math(EXPR number "${number} + 1")
    tolvex_locale(${locale} target)
    list(APPEND locales ${target})
    tolvex_in_locale(${locale} setting)
    tolvex_python_test(KeepsTextsIn${name} test_code_pages ${number}
      ${setting} TOLVEX_TEST_CODE_PAGE=${charset} PYTHONIOENCODING=utf-8)
  endforeach()
  add_custom_target(python_test_locales ALL DEPENDS ${locales})

  # Debian's mypy, which comes with the standard library's types.
  find_program(TOLVEX_MYPY mypy)
  if(NOT TOLVEX_MYPY)
    message(FATAL_ERROR "mypy not found. Install the package mypy (or run: ./run setup).")
  endif()
  tolvex_binding_test(PythonIsTyped ${TOLVEX_MYPY} src/tolvex examples tests)
  set_tests_properties(bindings.PythonIsTyped PROPERTIES WORKING_DIRECTORY ${python}
    ENVIRONMENT MYPY_CACHE_DIR=${CMAKE_BINARY_DIR}/tests/bindings/python-types)
else()
  tolvex_binding_package(Python python 127.61.2.1)
  tolvex_binding_test(PythonWheelsHaveAllTheyNeed ${TOLVEX_PYTHON} -m unittest -v test_wheels)
  set_tests_properties(bindings.PythonWheelsHaveAllTheyNeed PROPERTIES FIXTURES_REQUIRED Python_package
    WORKING_DIRECTORY ${python}/tests
    ENVIRONMENT "TOLVEX_WHEELS=${CMAKE_BINARY_DIR}/tests/bindings/python-package;PYTHONPATH=${python}/src;PYTHONDONTWRITEBYTECODE=1")
endif()
