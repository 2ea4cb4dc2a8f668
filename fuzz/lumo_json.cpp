// Reads arbitrary bytes as JSON. What is read must write a text that reads and writes the same again, and the
// scanner that explains refusals must agree with the reader about every text.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tolvbase/LumoJson.h"
#include "tolvbase/LumoJsonScanner.h"

namespace {

void require(bool isTrue) {
    if (!isTrue) {
        std::abort();
    }
}

std::optional<LumoJson> read(std::string_view text) {
    try {
        return LumoJson::parse(text);
    } catch (const std::runtime_error&) {
        return std::nullopt;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::optional<LumoJson> first = read(text);
    require(first.has_value() == !LumoJsonScanner(text).findFault().has_value());
    if (first) {
        const std::string dumped = first->dump();
        const std::optional<LumoJson> second = read(dumped);
        require(second.has_value() && second->dump() == dumped && second->type() == first->type());
        LumoJson copy = *second;
        copy = *first;
        require(copy.dump() == dumped);
    }
    return 0;
}
