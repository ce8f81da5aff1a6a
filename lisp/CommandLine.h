#pragma once

#include "sdk/fx/CFxString.h"

// Prints a text on the host's command line as it stands: a '%' in a path is a '%'.
void printText(const CFxString &text);

// Answers the call with a message and nil. The message is 8-bit text; by convention it begins with "\nError: ".
void failWith(const char *message);
void failWith(const CFxString &message);
