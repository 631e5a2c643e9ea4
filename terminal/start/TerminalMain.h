#pragma once

namespace Terminal {

/// Runs the terminal with the program's arguments and gives its exit status: 0 when all went
/// well, 1 when something did not, 2 when a script could not be read.
int RunTerminal(int argc, char** argv);

} // namespace Terminal
