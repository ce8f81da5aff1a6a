#pragma once

#include "host/commands/PlotJob.h"
#include "host/drawing/Drawing.h"

// Draws what a command was told into its file. False, with a reason, when it cannot be written.
bool plotToFile(const drawing::Drawing &drawing, const commands::PlotJob &job, std::u16string &failure);
