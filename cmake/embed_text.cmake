# cmake -DOUTPUT=x.cpp -DHEADER=declares.h "-DTEXTS=function|file;..." -P embed_text.cmake
# Writes a source that defines, in kiv::headless, a function for each file that returns the file's bytes.
set(source "// Made by cmake/embed_text.cmake.\n#include \"${HEADER}\"\n\nnamespace kiv::headless {\nnamespace {\n")
set(functions "")
foreach(entry IN LISTS TEXTS)
  string(REPLACE "|" ";" entry "${entry}")
  list(GET entry 0 function)
  list(GET entry 1 file)
  file(READ "${file}" bytes HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${bytes}")
  # Short lines: a debugger and a pager may look at this.
  string(REGEX REPLACE "('[^']*','[^']*','[^']*','[^']*','[^']*','[^']*','[^']*','[^']*',)" "\\1\n" bytes "${bytes}")
  string(APPEND source "constexpr char ${function}Bytes[] = {\n${bytes}};\n")
  string(APPEND functions
    "std::string_view ${function}() { return {${function}Bytes, sizeof ${function}Bytes}; }\n")
endforeach()
file(WRITE "${OUTPUT}" "${source}}  // namespace\n\n${functions}}  // namespace kiv::headless\n")
