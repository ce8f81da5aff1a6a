# The libraries that a program needs beside it on Windows: Qt's with the plugins that draw, and the compiler's. With
# them bin/ is complete and can be taken to another machine.

set(runtime_folder "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
get_target_property(qt_library Qt6::Core LOCATION)
cmake_path(GET qt_library PARENT_PATH qt_library_folder)
file(GLOB qt_libraries "${qt_library_folder}/Qt6*.dll")
file(COPY ${qt_libraries} DESTINATION "${runtime_folder}")
foreach(plugins platforms imageformats styles)
  file(COPY "${qt_library_folder}/../plugins/${plugins}" DESTINATION "${runtime_folder}" FILES_MATCHING PATTERN "*.dll")
endforeach()

foreach(library libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
  execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=${library} OUTPUT_VARIABLE file
                  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  file(COPY "${file}" DESTINATION "${runtime_folder}")
endforeach()
