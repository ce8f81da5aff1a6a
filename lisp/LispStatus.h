#pragma once

// What host operations give back, and handlers to the interpreter. The numbers are the host's.
enum LispStatus : int {
    StatusNormal = 5100,
    StatusNoInput = 5000, // the user pressed Enter
    StatusText = 5005,    // the user typed a text instead of picking a point
    StatusError = -5001,
    StatusCancelled = -5002,
    StatusKeyword = -5005,
};
