#include "tools/vrex/commands/VrexCommandLine.h"

int main(int count, char** arguments) { return nsVrexCommandLine::run(count, arguments); }
