#include "data/VrexEnumTable.h"

#include <stdexcept>
#include <string>

#include "data/VrexLog.h"

void nsEnum::raiseNoText(const char* enumName, std::int64_t value) {
    std::string message = "Failed to convert ";
    message += enumName;
    VREX_RAISE(std::out_of_range, message + "(" + std::to_string(value) + ") to string.");
}

void nsEnum::raiseNoValue(const char* enumName, std::string_view text) {
    std::string message = "Failed to convert the string \"";
    message += text;
    VREX_RAISE(std::out_of_range, message + "\" to " + enumName + ".");
}
