#pragma once

#include "host/kernel/HostServices.h"
#include "host/render/Sheet.h"

// Draws what a command was told into its file, and warns of what is left out. False, with a reason, when it cannot be
// written. The services must live as long.
HostServices::Plotter plotterWith(HostServices &services);

// What a user is told of a sheet that does not show everything; empty: it does.
QString cutNote(const render::Sheet &sheet);
