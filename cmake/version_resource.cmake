# add_version_resource(TARGET FILE DESCRIPTION): what the system shows of the target's FILE, on Windows: the product's
# version, and what the file is.
function(add_version_resource target file description)
  if(NOT WIN32)
    return()
  endif()
  set(type VFT_DLL)
  if(file MATCHES "\\.exe$")
    set(type VFT_APP)
  endif()
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
  configure_file(${CMAKE_SOURCE_DIR}/cmake/version.rc.in ${script} @ONLY)
  target_sources(${target} PRIVATE ${script})
endfunction()
