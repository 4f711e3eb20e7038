# cmake -DOUTPUT=x.cpp -DSCRIPT=file -DHEADER=file -P embed_text.cmake
# Writes a source that adds the two texts, of a resource script and its ids, to those of the library or program that it
# is linked into.
set(source "// Made by cmake/embed_text.cmake.\n#include \"platform/headless/resource_text.h\"\n\n")
string(APPEND source "namespace kiv::headless {\nnamespace {\n")
foreach(name SCRIPT HEADER)
  file(READ "${${name}}" bytes HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${bytes}")
  # Short lines: a debugger and a pager may look at this.
  string(REGEX REPLACE "('[^']*','[^']*','[^']*','[^']*','[^']*','[^']*','[^']*','[^']*',)" "\\1\n" bytes "${bytes}")
  string(APPEND source "constexpr char k${name}[] = {\n${bytes}};\n")
endforeach()
file(WRITE "${OUTPUT}" "${source}const ResourceText kText({kSCRIPT, sizeof kSCRIPT}, {kHEADER, sizeof kHEADER});\n\n"
  "}  // namespace\n}  // namespace kiv::headless\n")
