# Compiler settings shared by every target.

option(LISPEXTENSION_WERROR "Treat warnings as errors" OFF)
option(LISPEXTENSION_FUZZ "Build the libFuzzer targets (needs clang)" OFF)
option(LISPEXTENSION_BENCHMARKS "Build the Google Benchmark targets" OFF)
option(LISPEXTENSION_WEBENGINE "Show web pages in windows by Qt WebEngine (Debian: qt6-webengine-dev)" OFF)
set(LISPEXTENSION_SANITIZE "" CACHE STRING "Value for -fsanitize=, empty for none")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# Programs and the module side by side, found by each other through $ORIGIN.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_C_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
                    -Wunused -Wformat=2)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_compile_options(-Wno-restrict) # false alarms in inlined std::basic_string operators, GCC bug 105329
endif()
if(LISPEXTENSION_WERROR)
  add_compile_options(-Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # What the optimiser warns of comes and goes with its level, often as a false alarm where std::variant or
    # std::basic_string is inlined: it would stop the builds of users alone, as tests are built with less of it.
    add_compile_options(-Wno-error=maybe-uninitialized -Wno-error=array-bounds -Wno-error=stringop-overflow
                        -Wno-error=stringop-overread)
  endif()
endif()
if(LISPEXTENSION_SANITIZE)
  add_compile_options(-fsanitize=${LISPEXTENSION_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${LISPEXTENSION_SANITIZE})
  add_compile_definitions(_GLIBCXX_ASSERTIONS) # an empty optional that is read, an index beyond a vector's end
endif()

add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
