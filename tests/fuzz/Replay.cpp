// Feeds a fuzz target with each file of a folder, with each front part of it, and with each of its bytes left
// out.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void feed(const std::string& text) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

} // namespace

int main(int argc, char** argv) {
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
            feed(text);
            for (std::size_t at = 0; at < text.size(); ++at) {
                feed(text.substr(0, at));
                feed(text.substr(0, at) + text.substr(at + 1));
            }
            ++count;
        }
    }
    std::printf("%d seeds\n", count);
    return count > 0 ? 0 : 1;
}
