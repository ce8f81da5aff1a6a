#pragma once

// Bounds by the kernel's own count what this process and each that it starts may take, for good: memory, where
// `megabytes` for LISP data is not 0, and the size of a file; and leaves no core file behind. Raises SandboxError.
void limitResources(int megabytes);
