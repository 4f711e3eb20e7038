# copy_to_programs(TARGET FOLDER FILE...): the files, in a folder of that name beside the programs.
function(copy_to_programs target folder)
  set(copies)
  foreach(original ${ARGN})
    get_filename_component(name ${original} NAME)
    set(copy ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${folder}/${name})
    add_custom_command(OUTPUT ${copy} DEPENDS ${original}
      COMMAND ${CMAKE_COMMAND} -E copy ${original} ${copy})
    list(APPEND copies ${copy})
  endforeach()
  add_custom_target(${target} DEPENDS ${copies})
endfunction()
