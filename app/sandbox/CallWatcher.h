#pragma once

struct CallRules;

// Answers the calls that the filter reports, for as long as the process lives; to be run by a thread that the filter
// does not bind. `descriptor` tells of them.
void watchCalls(int descriptor, const CallRules &rules);
