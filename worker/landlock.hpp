// Landlock: Linux's access control that a process puts on itself, from kernel 5.13
// on. It stands behind the filter of system calls, as a second fence: should the
// filter be missing, or let a call through that it should not, still no file opens.
#pragma once

// Forbids this thread, and what it starts, every access to the file system that
// Landlock knows, without exception, and, where the kernel can: TCP, abstract Unix
// sockets and signals to other processes. Files that are open stay so. Returns the
// version of the kernel's interface, 0 when it has none or refuses. Needs
// no_new_privs.
int RestrictByLandlock();
