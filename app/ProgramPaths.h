#pragma once

#include <QString>

// The folder that holds this program's file and what is installed beside it.
QString programFolder();
