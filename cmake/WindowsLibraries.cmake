# Libraries that Debian has for Linux alone. A build for Windows compiles googletest from Debian's sources and takes the
# headers of the ones that are nothing but headers. find_package() finds them by the files that are written here.

function(provide package)
  file(WRITE "${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/${package}Config.cmake" "set(${package}_FOUND TRUE)\n")
endfunction()

# A folder with links, because everything else in /usr/include is for Linux.
set(header_folder "${CMAKE_BINARY_DIR}/headers")
file(MAKE_DIRECTORY "${header_folder}")
foreach(headers CLI stb)
  file(CREATE_LINK /usr/include/${headers} "${header_folder}/${headers}" SYMBOLIC)
endforeach()
set(STB_INCLUDE_DIRECTORY "${header_folder}")
add_library(CLI11::CLI11 INTERFACE IMPORTED GLOBAL)
target_include_directories(CLI11::CLI11 SYSTEM INTERFACE "${header_folder}")
provide(CLI11)

if(BUILD_TESTING)
  add_subdirectory(/usr/src/googletest "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
  foreach(library gtest gtest_main gmock gmock_main)
    target_compile_options(${library} PRIVATE -w) # other people's sources
  endforeach()
  provide(GTest)
endif()
