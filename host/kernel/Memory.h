#pragma once

// Keeps freed memory in the process, up to a limit, instead of giving it back to the system at once. Texts of many
// megabytes come and go with each call of a module, and getting their pages anew takes several times as long as copying
// the characters. Where the C library cannot be told so, nothing happens.
void keepFreedMemory();
