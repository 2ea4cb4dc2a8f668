#include "data/serialization/VrexOutputStream.h"

VrexOutputStream::~VrexOutputStream() = default;
