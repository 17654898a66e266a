// The standard streams as the worker needs them.
#pragma once

// Makes standard output carry bytes as they are written: on Windows a line
// feed would otherwise leave as two bytes. Called once, before any output.
void PrepareStandardStreams();
