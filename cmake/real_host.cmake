# The module and its siblings for the host whose development kit KIV_HOST_SDK names, instead of the hosts of this tree.
enable_language(RC)

if(NOT MSVC OR NOT CMAKE_SIZEOF_VOID_P EQUAL 8)
  message(FATAL_ERROR "The host's libraries are those of MSVC for x64; this is ${CMAKE_CXX_COMPILER} "
    "(${CMAKE_CXX_COMPILER_ID}). Please configure in the x64 command prompt of the compiler.")
endif()

# The host and the framework have the compiler's runtime as libraries, in the form without checks, whatever is built.
set(CMAKE_MSVC_RUNTIME_LIBRARY MultiThreadedDLL)

# _AFXEXT: a library of the framework's extension kind, which shares the framework's libraries with the host.
add_compile_definitions(_AFXEXT)
# /Brepro: what is built twice from the same sources is the same.
add_compile_options("$<$<COMPILE_LANGUAGE:CXX>:/utf-8;/EHsc;/W4;/Zc:__cplusplus;/Brepro>")
add_link_options(/Brepro)

# Takes the place of the embedded host. The framework comes before every other header, as it demands.
add_library(cad_host INTERFACE)
target_include_directories(cad_host SYSTEM INTERFACE ${KIV_HOST_SDK}/inc)
if(EXISTS ${KIV_HOST_SDK}/inc-x64)
  target_include_directories(cad_host SYSTEM INTERFACE ${KIV_HOST_SDK}/inc-x64)
endif()
target_link_libraries(cad_host INTERFACE ${KIV_HOST_LIBRARIES})
target_precompile_headers(cad_host INTERFACE ${CMAKE_SOURCE_DIR}/platform/real_host/framework.h)

# acrxGetApiVersion is in the host's own libraries; the module-definition file has the linker take it from there.
add_library(cad_host_module INTERFACE)
