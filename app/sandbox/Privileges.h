#pragma once

// Gives up, for good, for this thread and all that it starts, what makes root more than others, except for the right to
// use files whatever their permissions say: the file rules bind that. Raises SandboxError.
void dropPrivileges();
