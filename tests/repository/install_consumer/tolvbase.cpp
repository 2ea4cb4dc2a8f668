#include "tolvbase/TolvFormat.h"

int main() { return Tolv::formatString("%s", "text") == "text" ? 0 : 1; }
