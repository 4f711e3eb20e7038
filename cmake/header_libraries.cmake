# Libraries of headers alone, which serve every compiler. A cross build must not see what else stands in their
# folder: each has an include folder of its own.

# kiv_header_library(NAME FOLDER PACKAGE): the folder of /usr/include, and the Debian package that it is from.
function(kiv_header_library name folder package)
  set(headers /usr/include/${folder})
  if(NOT EXISTS ${headers})
    message(FATAL_ERROR "${headers} is missing; please install ${package}")
  endif()
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/headers/${name})
  file(CREATE_LINK ${headers} ${CMAKE_BINARY_DIR}/headers/${name}/${folder} COPY_ON_ERROR SYMBOLIC)
  add_library(${name} INTERFACE)
  target_include_directories(${name} SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/headers/${name})
endfunction()

kiv_header_library(json nlohmann nlohmann-json3-dev)
kiv_header_library(cli11 CLI libcli11-dev)
kiv_header_library(stb stb libstb-dev)
