#include "data/VrexEnumTable.h"

#include <stdexcept>
#include <string>

void nsEnum::raiseNoText(const char* enumName, std::int64_t value) {
    throw std::out_of_range("Failed to convert " + std::string(enumName) + "(" + std::to_string(value) +
                            ") to string.");
}

void nsEnum::raiseNoValue(const char* enumName, std::string_view text) {
    throw std::out_of_range("Failed to convert the string \"" + std::string(text) + "\" to " + enumName +
                            ".");
}
