#pragma once

#include "app/CommandLine.h"

class Session;

// lisphost test PATH ...: runs the tests that the paths lead to and gives an exit status. What they print is kept back
// and shown where a test fails.
int runTests(Session &session, const Options &options);
