# Warnings, sanitizers and hardening, as one interface target that everything of ours links.
add_library(tolvex_options INTERFACE)
add_library(tolvex::options ALIAS tolvex_options)

target_compile_options(tolvex_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wformat=2 -Wcast-qual
  $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast>
  $<$<BOOL:${TOLVEX_WERROR}>:-Werror>)

if(TOLVEX_SANITIZE)
  target_compile_options(tolvex_options INTERFACE
    -fsanitize=${TOLVEX_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all -g1
    # The library keeps up with its time limits; the programs and the tests compile in half the time so.
    $<IF:$<OR:$<BOOL:$<TARGET_PROPERTY:TOLVEX_COMPILE_FAST>>,$<BOOL:$<TARGET_PROPERTY:TOLVEX_COMPILE_PLAIN>>>,-O0,$<IF:$<BOOL:${TOLVEX_FUZZ}>,-O2,-O1>>)
  if(TOLVEX_SANITIZE MATCHES "undefined")
    # Checks of each pointer before it is used take the half of that again, in the templates of others above all,
    # and AddressSanitizer sees those that are bad. The library has them.
    target_compile_options(tolvex_options INTERFACE
      $<$<OR:$<BOOL:$<TARGET_PROPERTY:TOLVEX_COMPILE_FAST>>,$<BOOL:$<TARGET_PROPERTY:TOLVEX_COMPILE_PLAIN>>>:-fno-sanitize=null,vptr,alignment,object-size,pointer-overflow>)
  endif()
  target_link_options(tolvex_options INTERFACE -fsanitize=${TOLVEX_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    target_compile_options(tolvex_options INTERFACE
      -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/cmake/sanitizer-ignorelist.txt
      $<$<COMPILE_LANGUAGE:CXX>:-fsized-deallocation>) # as C++ says, and GCC does
  endif()
  if(TOLVEX_SANITIZE MATCHES "thread")
    # Boost.Asio's fences, beside the locks that ThreadSanitizer does understand.
    target_compile_options(tolvex_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-tsan>)
  endif()
else()
  if(TOLVEX_COVERAGE)
    set(counting -fprofile-instr-generate -fcoverage-mapping)
    # One name for each file, whether it was given to the compiler from the build tree or was included.
    file(RELATIVE_PATH sources ${PROJECT_BINARY_DIR} ${PROJECT_SOURCE_DIR}/src)
    target_compile_options(tolvex_options INTERFACE ${counting} -O0
      -fcoverage-prefix-map=${sources}=${PROJECT_SOURCE_DIR}/src)
    target_link_options(tolvex_options INTERFACE ${counting})
  else()
    # No file that is built may tell where: two folders give the same bytes.
    target_compile_options(tolvex_options INTERFACE
      -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=build)
  endif()
  # The library is optimised as the configuration says; the programs and the tests lose nothing by less.
  set(fast $<BOOL:$<TARGET_PROPERTY:TOLVEX_COMPILE_FAST>>)
  # The tests are not optimised at all, which takes a third less time to compile.
  set(plain $<BOOL:$<TARGET_PROPERTY:TOLVEX_COMPILE_PLAIN>>)
  target_compile_options(tolvex_options INTERFACE
    $<$<AND:${fast},$<NOT:$<CONFIG:Debug>>>:-O1> $<$<AND:${fast},$<CONFIG:RelWithDebInfo>>:-g1>
    $<$<AND:${plain},$<NOT:$<CONFIG:Debug>>>:-O0> $<$<AND:${plain},$<CONFIG:RelWithDebInfo>>:-g1>)
  target_compile_options(tolvex_options INTERFACE -fstack-protector-strong
    $<$<NOT:$<OR:${plain},$<CONFIG:Debug>>>:-D_FORTIFY_SOURCE=2>)
  target_link_options(tolvex_options INTERFACE -fstack-protector-strong)
endif()

if(WIN32)
  # Everything is linked in, so that programs and library need Windows' own DLLs only.
  target_compile_definitions(tolvex_options INTERFACE _WIN32_WINNT=0x0601)
  # A caller relies on which registers an inline function leaves alone, but the linker may keep another
  # file's copy of that function, which uses others. GCC takes this into account for ELF only.
  target_compile_options(tolvex_options INTERFACE -fno-ipa-ra)
  target_link_options(tolvex_options INTERFACE -static
    -Wl,--dynamicbase,--high-entropy-va,--nxcompat,--no-insert-timestamp)
else()
  target_link_options(tolvex_options INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
endif()
