// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

/// Answers --help with the usage, which ends its lines itself, and --version with the name of the
/// program and its version, on standard output. False when the arguments, argv[1] onwards, ask for
/// neither.
bool answersHelpOrVersion(int argc, char** argv, const char* program, const char* usage);

/// Says on standard error how the program is called, which is the first line of its usage. The exit
/// status for bad arguments.
int misused(const char* usage);
