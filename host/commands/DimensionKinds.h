#pragma once

#include "host/commands/NewDimension.h"

// The commands within DIM and DIM1 that have a source of their own.
namespace commands {

Command measureAngle(Context &context, TextQuestion question);    // AngleDimensionCommand.cpp
Command measureOrdinate(Context &context, TextQuestion question); // OrdinateDimensionCommand.cpp
// From the last linear dimension, else from one that is picked. ChainDimensionCommands.cpp
enum class Chain { Continued, FromBase };
Command chainDimensions(Context &context, Chain chain, TextQuestion question);
Command drawLeader(Context &context, TextQuestion question); // LeaderCommand.cpp

} // namespace commands
