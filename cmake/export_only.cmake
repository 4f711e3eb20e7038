# export_only(LIBRARY DEF MAP): the library shows the functions of a list and nothing else. The list is a
# module-definition file on Windows, where every compiler's linker reads it, and elsewhere a version script.
function(export_only library def map)
  if(WIN32)
    target_sources(${library} PRIVATE ${def})
  else()
    target_link_options(${library} PRIVATE -Wl,--version-script=${map})
    set_target_properties(${library} PROPERTIES LINK_DEPENDS ${map})
  endif()
endfunction()
