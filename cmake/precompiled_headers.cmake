# The standard library's headers, and those of the test framework, are most of what the compiler reads for a
# source file; libraries and tests read them once. A file includes what it uses all the same: the build with
# the sanitizers, which has none of this, fails where one does not.

function(kiv_targets_below folder result)
  get_property(found DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(below IN LISTS folders)
    kiv_targets_below(${below} more)
    list(APPEND found ${more})
  endforeach()
  set(${result} ${found} PARENT_SCOPE)
endfunction()

# Every library below `folder`, and every program that is linked with the test framework: code of programs is
# position-independent in another way.
function(kiv_precompile folder)
  kiv_targets_below(${CMAKE_SOURCE_DIR}/${folder} targets)
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    if(type MATCHES "LIBRARY" AND NOT type STREQUAL "INTERFACE_LIBRARY")
      target_precompile_headers(${target} REUSE_FROM standard_headers)
      continue()
    endif()
    get_target_property(linked ${target} LINK_LIBRARIES)
    if(type STREQUAL "EXECUTABLE" AND linked MATCHES "GTest::")
      target_precompile_headers(${target} REUSE_FROM test_headers)
    endif()
  endforeach()
endfunction()

set(standard_headers <algorithm> <array> <filesystem> <functional> <map> <memory> <optional> <string>
    <string_view> <unordered_map> <utility> <variant> <vector>)
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/precompiled_headers.cpp CONTENT "int main() { return 0; }\n")

add_library(standard_headers OBJECT ${CMAKE_BINARY_DIR}/precompiled_headers.cpp)
target_precompile_headers(standard_headers PRIVATE ${standard_headers})
foreach(folder base embedded siblings platform spec ui engine host cli cadhost)
  kiv_precompile(${folder})
endforeach()

if(KIV_TESTS)
  add_executable(test_headers EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/precompiled_headers.cpp)
  target_link_libraries(test_headers PRIVATE GTest::gtest)
  target_precompile_headers(test_headers PRIVATE ${standard_headers} <gtest/gtest.h>)
  kiv_precompile(tests)
endif()
