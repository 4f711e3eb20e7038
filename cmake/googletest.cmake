# GoogleTest for a cross build: the distribution has it compiled for its own system only, and as sources.
set(KIV_GOOGLETEST_SOURCES /usr/src/googletest CACHE PATH "GoogleTest's sources (Debian: googletest)")

set(BUILD_GMOCK OFF)
set(INSTALL_GTEST OFF)
add_subdirectory(${KIV_GOOGLETEST_SOURCES} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
foreach(library gtest gtest_main)
  target_compile_options(${library} PRIVATE -w)
  # Its headers count as the system's: they are not held to this project's warnings.
  get_target_property(folders ${library} INTERFACE_INCLUDE_DIRECTORIES)
  set_target_properties(${library} PROPERTIES INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${folders}")
endforeach()
if(NOT TARGET GTest::gtest_main)
  add_library(GTest::gtest ALIAS gtest)
  add_library(GTest::gtest_main ALIAS gtest_main)
endif()

# One test per program instead of one per case: each would cost a start of Wine.
function(gtest_discover_tests target)
  cmake_parse_arguments(arg "" "DISCOVERY_MODE;WORKING_DIRECTORY" "PROPERTIES;EXTRA_ARGS" ${ARGN})
  add_test(NAME ${target} COMMAND ${target} --gtest_brief=1 ${arg_EXTRA_ARGS})
  # A program in a folder of its own finds the compiler's libraries, too.
  set_tests_properties(${target} PROPERTIES LABELS wine TIMEOUT 600
    ENVIRONMENT "WINEPATH=${KIV_MACHINE_ROOT}${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  if(arg_PROPERTIES)
    set_tests_properties(${target} PROPERTIES ${arg_PROPERTIES})
  endif()
endfunction()
