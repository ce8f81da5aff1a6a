# Headers that most files include are parsed once for each kind of target and not once for each file, which takes most of
# a file's time. Files include what they use all the same, and are on their own in every other build.
# With a compiler cache nothing is parsed at all, as long as nothing is precompiled: what was parsed in another checkout's
# folder counts as something else.

if(CCACHE_PROGRAM AND NOT DEFINED ENV{CCACHE_DISABLE})
  set(without_cache OFF)
else()
  set(without_cache ON)
endif()
option(LISPEXTENSION_QUICK_BUILD "Precompile headers, optimise less; for builds tested once, without a compiler cache"
       ${without_cache})

if(LISPEXTENSION_QUICK_BUILD)
  # For one and the same folder ccache works all the same. Without these words it passes by what uses precompiled headers,
  # and with the times of the headers in them no two were alike.
  if(CCACHE_PROGRAM)
    set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros "${CCACHE_PROGRAM}")
  endif()
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    add_compile_options("$<$<COMPILE_LANGUAGE:CXX>:SHELL:-Xclang -fno-pch-timestamp>")
  else()
    # False alarms in std::basic_string, which does not count as the system's when it comes from a precompiled header.
    add_compile_options(-Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
  endif()
  add_compile_options($<$<CONFIG:Release>:-O1>)
endif()

# add_precompiled_headers(NAME LIBRARIES target... HEADERS header...): headers, and the libraries that they belong to. Those
# without angle brackets are the project's, from its root.
function(add_precompiled_headers name)
  cmake_parse_arguments(PARSED "" "" "LIBRARIES;HEADERS" ${ARGN})
  list(TRANSFORM PARSED_HEADERS PREPEND "${PROJECT_SOURCE_DIR}/" REGEX "^[^<]")
  set(source "${CMAKE_BINARY_DIR}/precompiled/${name}.cpp")
  file(CONFIGURE OUTPUT "${source}" CONTENT "// what the headers are compiled for\n")
  add_library(${name} OBJECT "${source}")
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE ${PARSED_LIBRARIES})
  target_precompile_headers(${name} PRIVATE ${PARSED_HEADERS})
endfunction()

# use_precompiled_headers(NAME target...): the targets have to link those libraries, and to be compiled in the same way.
function(use_precompiled_headers name)
  foreach(target IN LISTS ARGN)
    target_precompile_headers(${target} REUSE_FROM ${name})
  endforeach()
endfunction()

# use_precompiled_headers_below(NAME folder...): the same for all targets of the folders and of the ones below them.
function(use_precompiled_headers_below name)
  foreach(folder IN LISTS ARGN)
    get_property(targets DIRECTORY "${folder}" PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target IN LISTS targets)
      get_target_property(type ${target} TYPE)
      if(type MATCHES "^(STATIC|SHARED|MODULE)_LIBRARY$|^EXECUTABLE$")
        use_precompiled_headers(${name} ${target})
      endif()
    endforeach()
    get_property(folders_below DIRECTORY "${folder}" PROPERTY SUBDIRECTORIES)
    use_precompiled_headers_below(${name} ${folders_below})
  endforeach()
endfunction()

# What every kind of target includes.
set(common_headers
  <algorithm> <array> <cmath> <cstdint> <functional> <limits> <map> <memory> <numbers> <optional> <span> <string>
  <string_view> <unordered_map> <utility> <vector>
  <QByteArray> <QDir> <QFile> <QFileInfo> <QString> <QStringList>
)
set(window_headers
  <QApplication> <QDialog> <QFileDialog> <QLabel> <QLineEdit> <QMainWindow> <QMessageBox> <QPainter> <QPushButton>
)
set(kernel_headers host/kernel/Document.h host/kernel/HostServices.h)
