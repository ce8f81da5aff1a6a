# Given to Qt's own build as CMAKE_PROJECT_QtBase_INCLUDE: the same libraries in less time. What HarfBuzz takes to compile
# are its templates, the same ones in every file.

function(quicken_qt)
  set_target_properties(BundledHarfbuzz PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 14)
endfunction()

# The target is there when all of Qt's files have been read.
cmake_language(DEFER CALL quicken_qt)
