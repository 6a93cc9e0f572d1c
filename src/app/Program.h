#pragma once

// Runs the whole program. main() calls this function only when no running instance
// has taken the request over. Returns the exit status.
extern "C" int runProgram(int argc, char **argv);
