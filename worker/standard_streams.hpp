// The standard streams' platform settings.
#pragma once

// Makes standard output write bytes as they are, so that the document ends in
// a single line feed on every platform. Called once, before anything is
// written.
void PrepareStandardStreams();
