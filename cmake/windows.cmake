# What every target of a Windows build needs.
enable_language(RC)

add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)

# A wide character has 16 bits here: what portable code asks about larger ones is always false.
add_compile_options(-Wno-type-limits)

add_compile_options(-Wno-stringop-overread)  # a false alarm on the library's strings

# The compiler's runtime is one shared copy beside the programs, not a copy inside each of them: strings,
# streams and exceptions cross from the host's library to the module and the programs, and error
# categories are told apart by their addresses.
foreach(name libstdc++-6 libgcc_s_seh-1 libwinpthread-1)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}.dll
    OUTPUT_VARIABLE library OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT IS_ABSOLUTE "${library}")
    set(library /usr/x86_64-w64-mingw32/lib/${name}.dll)
  endif()
  file(COPY ${library} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
endforeach()
