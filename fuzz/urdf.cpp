// Robot descriptions, both ways of reading, with a loop file of each kind.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "exchange/VrexUrdfReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const bool isStrict : {true, false}) {
        const VrexUrdfReader reader({isStrict, {}});
        (void)reader.readText(text);
        (void)reader.readText(text, "closed_loop: [[a, d]]\ntype: ['3d']\n");
        (void)reader.readText("<robot name='r'><link name='a'/></robot>", text);
    }
    return 0;
}
