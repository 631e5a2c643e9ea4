#include "terminal/start/TerminalMain.h"

int main(int argc, char** argv) { return Terminal::RunTerminal(argc, argv); }
