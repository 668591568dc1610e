# Several files of a target as one, which saves most of what their headers cost: those of each folder
# together, at most as many as said. Files with options or definitions of their own stay alone, and so
# does what shares a name in an anonymous namespace with its neighbours and says
# SKIP_UNITY_BUILD_INCLUSION.
#   tolvex_unity(TARGET)
set(tolvex_unity_most 24)
function(tolvex_unity target)
  if(NOT TOLVEX_UNITY)
    return()
  endif()
  get_target_property(sources ${target} SOURCES)
  foreach(source IN LISTS sources)
    if(IS_ABSOLUTE ${source} OR NOT source MATCHES "\\.cpp$")
      continue()
    endif()
    get_filename_component(folder ${source} DIRECTORY)
    string(MAKE_C_IDENTIFIER "in_${folder}" folder)
    math(EXPR ${folder} "${${folder}}+0")
    math(EXPR number "${${folder}} / ${tolvex_unity_most}")
    math(EXPR ${folder} "${${folder}} + 1")
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${folder}_${number})
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
endfunction()
