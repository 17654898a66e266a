// One run of the worker, from its command line to its exit status.
#pragma once

// Converts the drawing named by the first argument and prints the document, or
// an error object, as one line on standard output. Progress goes to standard
// error. Returns the exit status: 1 without a path, when the drawing cannot be
// read or when the document cannot be written, else 0.
int RunWorker(int argc, const char* const* argv);
