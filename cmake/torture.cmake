# The long proofs: what ./run torture runs in full, and ./run test in part.
#   tolvex_torture(NAME name PROMISE "one line" TAKES "6 min" COMMAND program arg...
#                  [SHARE arg...] [NO_SHARE] [FULL arg...] [WHERE build...] [DEPENDS target...]
#                  [LABELS label...] [PROPERTIES ...])
# PROMISE tells what the run proves, TAKES how long it does in full. The command is a target, which runs
# under Wine in the Windows build, or a file; the arguments of SHARE follow it in ./run test, those of FULL
# in ./run torture. With NO_SHARE it is run by ./run torture only. WHERE names the builds (linux windows
# asan tsan) that ./run torture runs it in: linux and windows where nothing is said; the share is in every
# build that comes by here. A run ends with the line "FIGURE: ..." of what it counted.
#
# All of them are at the target "torture" and in the folder torture/ of the build tree: for each a file
# of shell variables and the function "run_it".
add_custom_target(torture)
file(REMOVE_RECURSE ${CMAKE_BINARY_DIR}/torture) # of an earlier configuration

if(WIN32)
  set(tolvex_build_kind windows)
elseif(TOLVEX_SANITIZE MATCHES "thread")
  set(tolvex_build_kind tsan)
elseif(TOLVEX_SANITIZE)
  set(tolvex_build_kind asan)
else()
  set(tolvex_build_kind linux)
endif()

function(tolvex_torture)
  cmake_parse_arguments(arg "NO_SHARE" "NAME;PROMISE;TAKES"
    "COMMAND;SHARE;FULL;WHERE;DEPENDS;LABELS;PROPERTIES" ${ARGN})
  if(NOT DEFINED arg_WHERE)
    set(arg_WHERE linux windows)
  endif()
  list(POP_FRONT arg_COMMAND program)
  if(TARGET ${program})
    add_dependencies(torture ${program})
    set(launched ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:${program}>)
  else()
    set(launched ${program})
  endif()
  if(arg_DEPENDS)
    add_dependencies(torture ${arg_DEPENDS})
  endif()
  set(folder ${CMAKE_BINARY_DIR}/tests/torture/${arg_NAME})
  file(MAKE_DIRECTORY ${folder})

  if(NOT arg_NO_SHARE)
    add_test(NAME torture.${arg_NAME} COMMAND ${program} ${arg_COMMAND} ${arg_SHARE}
      WORKING_DIRECTORY ${folder})
    set_tests_properties(torture.${arg_NAME} PROPERTIES TIMEOUT 300 LABELS "torture;${arg_LABELS}"
      ${arg_PROPERTIES})
  endif()
  if(NOT tolvex_build_kind IN_LIST arg_WHERE)
    return()
  endif()
  set(words ${launched} ${arg_COMMAND} ${arg_FULL})
  list(TRANSFORM words REPLACE "'" "'\\\\''")
  list(TRANSFORM words REPLACE "^(.+)$" "'\\1'")
  list(JOIN words " " words)
  string(REPLACE "'" "'\\''" promise "${arg_PROMISE}")
  file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/torture/${arg_NAME} CONTENT
"promise='${promise}'
takes='${arg_TAKES}'
run_it() { cd '${folder}' && ${words}; }
")
endfunction()
