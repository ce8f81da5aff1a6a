#pragma once

#include <QString>

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

// What the program needs to know of its own process and to have arranged in it, for each system in a source of its own.

// To be called first of all. Makes the stack as deep as recursive programs need it and keeps the numbers of closed
// standard streams from being used for files; on Windows, where the linker has
// seen to that, has the streams hand on every byte as it is and the console take UTF-8.
void prepareProcess();

// The arguments in UTF-8, the program's name first.
std::vector<std::string> programArguments(int argumentCount, char **arguments);

// The folder that holds this program's file and what is installed beside it.
QString programFolder();

// Whether another process is at the other end. Such a stream fails when nobody reads it any more.
bool isPipe(std::FILE *stream);

// Writes to standard output, past what the stream has collected, and gives up where nobody takes the text. A signal's
// handler may do so.
void sendToOutput(std::string_view text);

// Whether a person is at the other end.
bool isTerminal(std::FILE *stream);
