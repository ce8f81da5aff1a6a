# Sine and cosine from Windows' own C library. Those of mingw-w64 are the processor's x87 instructions, which know 66 bits
# of pi: (sin pi) would be 1.22461e-16 instead of 1.22465e-16. Its library for msvcrt.dll leaves them out.

set(definition "${CMAKE_BINARY_DIR}/windowsmath.def")
set(import_library "${CMAKE_BINARY_DIR}/libwindowsmath-import.a")
file(WRITE "${definition}" "LIBRARY msvcrt.dll\nEXPORTS\ncos\nsin\n")
execute_process(COMMAND "${CMAKE_DLLTOOL}" -d "${definition}" -l "${import_library}" COMMAND_ERROR_IS_FATAL ANY)

add_library(windowsmath STATIC "${PROJECT_SOURCE_DIR}/platform/windows/sincos.c")
target_compile_options(windowsmath PRIVATE -fno-builtin)
target_link_libraries(windowsmath INTERFACE "${import_library}")
link_libraries(windowsmath) # every target that is added from now on
