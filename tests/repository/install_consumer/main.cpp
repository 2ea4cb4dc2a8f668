#include "vrex.data3d.h"

int main() {
    try {
        throw VrexInvalidArgumentException(Tolv::formatString("slot %d", 7));
    } catch (const std::invalid_argument& error) {
        return std::string(error.what()) == "slot 7" ? 0 : 1;
    }
}
