# Writes SOURCE, the definition of what functions/VersionText.h declares, unless it stands there already. CMake takes the
# date from SOURCE_DATE_EPOCH when that is set, so that the same sources give the same module on any day.
cmake_minimum_required(VERSION 3.25)
string(TIMESTAMP date "%b %d %Y" UTC)
string(REPLACE " 0" "  " date "${date}")
file(CONFIGURE OUTPUT "${SOURCE}" @ONLY CONTENT [[
#include "functions/VersionText.h"

const char versionText[] = "LispExtension Version: @date@";
]])
