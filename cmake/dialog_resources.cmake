# add_dialog_resources(TARGET SCRIPT HEADER PICTURE...): an object library of the dialogs and menus of a resource script,
# for the library or program that shows them: compiled into it where the system does that, and as text for the backend
# without windows. The backend finds them in whatever it is linked into itself.
function(add_dialog_resources target script header)
  set(folder ${CMAKE_CURRENT_SOURCE_DIR})
  get_filename_component(script ${script} ABSOLUTE)
  get_filename_component(header ${header} ABSOLUTE)
  get_filename_component(header_folder ${header} DIRECTORY)
  if(WIN32)
    add_library(${target} OBJECT ${script})
    set(pictures ${ARGN})
    list(TRANSFORM pictures PREPEND ${folder}/)
    set_source_files_properties(${script} PROPERTIES OBJECT_DEPENDS "${header};${pictures}")
    target_include_directories(${target} PRIVATE ${header_folder})
  else()
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${target}.cpp)
    set(embed ${CMAKE_SOURCE_DIR}/cmake/embed_text.cmake)
    add_custom_command(OUTPUT ${source}
      COMMAND ${CMAKE_COMMAND} -DOUTPUT=${source} -DSCRIPT=${script} -DHEADER=${header} -P ${embed}
      DEPENDS ${script} ${header} ${embed} VERBATIM)
    add_library(${target} OBJECT ${source})
  endif()
endfunction()
