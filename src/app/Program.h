#pragma once

// All of the program except its door: what main() does when nobody else can do
// it. Answers the status to end with.
extern "C" int runProgram(int argc, char **argv);
