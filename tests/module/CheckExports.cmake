# Fails unless what MODULE exports are the two entry points and nothing else. LIST: the program and options that print the
# table of exported names, which in a Windows library is one of many.
execute_process(COMMAND ${LIST} "${MODULE}" OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
if(table MATCHES "\\[Ordinal/Name Pointer\\] Table\n(([^\n]+\n)+)")
  set(table "${CMAKE_MATCH_1}") # lines like "[   0] odrxGetAPIVersion"
endif()
string(REGEX MATCHALL "[A-Za-z_][^\n]*" symbols "${table}")
list(SORT symbols)
if(NOT symbols STREQUAL "odrxCreateModuleObject;odrxGetAPIVersion")
  message(FATAL_ERROR "the module exports: ${symbols}")
endif()
