# The host's development kit, which is looked at before anything else is: KIV_HOST_SDK is a folder with inc/ and
# lib-x64/, as the host's makers hand it out.
set(KIV_HOST_SDK "" CACHE PATH "Folder of the host's development kit, with inc/ and lib-x64/")

if(NOT KIV_HOST_SDK)
  message(FATAL_ERROR "-DKIV_HOST_SDK=DIR is missing: the folder of the host's development kit")
endif()
file(TO_CMAKE_PATH "${KIV_HOST_SDK}" KIV_HOST_SDK)
foreach(part inc/aced.h lib-x64)
  if(NOT EXISTS ${KIV_HOST_SDK}/${part})
    message(FATAL_ERROR "KIV_HOST_SDK: ${KIV_HOST_SDK} is no development kit of the host: it has no ${part}")
  endif()
endforeach()

# The number in a library's name is that of the release. What a release has in another library, or has not, is for the
# linker to tell; without these nothing can be linked.
set(KIV_HOST_LIBRARIES)
foreach(pattern rxapi accore acad acdb[0-9]* acui[0-9]* adui[0-9]* acge[0-9]* ac1st[0-9]*)
  file(GLOB found ${KIV_HOST_SDK}/lib-x64/${pattern}.lib)
  list(LENGTH found count)
  if(count GREATER 1)
    message(FATAL_ERROR "KIV_HOST_SDK: ${KIV_HOST_SDK}/lib-x64 has libraries of several releases: ${found}")
  elseif(count EQUAL 0 AND NOT pattern MATCHES "acge|ac1st")
    message(FATAL_ERROR "KIV_HOST_SDK: ${KIV_HOST_SDK}/lib-x64 has no ${pattern}.lib")
  endif()
  list(APPEND KIV_HOST_LIBRARIES ${found})
endforeach()
