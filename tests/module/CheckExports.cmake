# Fails unless the dynamic symbol table of MODULE defines the two entry points and nothing else.
execute_process(COMMAND "${NM}" -D --defined-only --format=just-symbols "${MODULE}"
                OUTPUT_VARIABLE symbols OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\n" ";" symbols "${symbols}")
list(SORT symbols)
if(NOT symbols STREQUAL "odrxCreateModuleObject;odrxGetAPIVersion")
  message(FATAL_ERROR "the module exports: ${symbols}")
endif()
