#pragma once

// The module's name and the day of its build: "LispExtension Version: Apr  9 2026". The day is padded with a blank to
// two characters, so there are two blanks before a one-digit day.
extern const char versionText[];
