# Given to Qt's own build as CMAKE_PROJECT_QtBase_INCLUDE: the same libraries in less time. Most of what Windows' parts of
# Qt take to compile is <windows.h>, and what HarfBuzz takes are its templates, the same ones in every file.

function(quicken_qt)
  set_target_properties(BundledHarfbuzz PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 14)
  set_property(TARGET Core APPEND PROPERTY PRECOMPILE_HEADERS "<QtCore/qt_windows.h>")
  target_precompile_headers(QWindowsIntegrationPlugin PRIVATE
    <QtCore/qt_windows.h> <QtCore/qcoreapplication.h> <QtCore/qdebug.h> <QtCore/qloggingcategory.h> <QtCore/qpointer.h>
    <QtGui/qguiapplication.h> <QtGui/qwindow.h> <qpa/qwindowsysteminterface.h> <private/qguiapplication_p.h>
  )
endfunction()

# The targets are there when all of Qt's files have been read.
cmake_language(DEFER CALL quicken_qt)
