// Reads arbitrary bytes as the text of a document. What is read is evaluated, walked, copied, written and
// read again.

#include <cstddef>
#include <cstdint>
#include <string>

#include "support/SystemUse.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    nsSystemUse::readAndUse(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
