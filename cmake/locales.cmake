# Locales for tests, made in the build tree and without root: few machines have more than their own.
# Programs under Wine follow them too, Windows' ANSI code page included: 936 in zh_CN.UTF-8, 1251 in
# ru_RU.UTF-8, 1252 in de_DE.UTF-8. Each process has the code page of its own locale, whatever others
# of the same prefix have.
find_program(LOCALEDEF localedef NO_CMAKE_FIND_ROOT_PATH)
if(NOT LOCALEDEF OR NOT EXISTS /usr/share/i18n/locales)
  message(FATAL_ERROR "localedef or its sources not found. Install the package locales (or run: ./run setup).")
endif()
set(tolvex_locales ${CMAKE_BINARY_DIR}/locales)

# A target that makes the locale, such as de_DE.ISO-8859-1: a language and country, and a character
# set by its name in /usr/share/i18n/charmaps.
#   tolvex_locale(LOCALE TARGET-VARIABLE)
function(tolvex_locale locale target_variable)
  set(target locale-${locale})
  set(${target_variable} ${target} PARENT_SCOPE)
  if(TARGET ${target})
    return()
  endif()
  if(NOT locale MATCHES "^([^.]+)\\.(.+)$")
    message(FATAL_ERROR "The locale ${locale} names no character set.")
  endif()
  set(made ${tolvex_locales}/${locale})
  set(stamp ${tolvex_locales}/.made-${locale})
  add_custom_command(OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${made}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${tolvex_locales}
    COMMAND ${LOCALEDEF} -i ${CMAKE_MATCH_1} -f ${CMAKE_MATCH_2} ${made}
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
    COMMENT "Making the locale ${locale}" VERBATIM)
  add_custom_target(${target} DEPENDS ${stamp})
endfunction()

# What a test's property ENVIRONMENT must hold for the test to run in the locale, which the program
# must depend on (see above). tolvex_unit_test and tolvex_discover_tests do all of it by LOCALE.
#   tolvex_in_locale(LOCALE VARIABLE)
function(tolvex_in_locale locale variable)
  set(environment LOCPATH=${tolvex_locales} LC_ALL=${locale})
  if(TOLVEX_SANITIZE MATCHES "address")
    list(APPEND environment
      LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/leaks-of-glibc.supp:print_suppressions=0)
  endif()
  set(${variable} ${environment} PARENT_SCOPE)
endfunction()
