// Saves a system as a document, in a file that is never half written.

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "data/serialization/3d/VrexSystem3DSerializer.h"
#include "tools/vrex/VrexFile.h"

namespace {

VrexImmutableSystem3D makeSystem() {
    constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;
    const auto corner = VrexPoint3D::create(1.0, -2.0, 3.5);
    const auto edge = VrexLine3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0});
    corner->label() = "corner";
    return {{corner, edge},
            {},
            {VrexDistance3D::create(corner, edge, 2.0, WHOLE, WHOLE)},
            {},
            1e-6,
            1e-8,
            {},
            {}};
}

} // namespace

int main() {
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "vrex_example.json";
    try {
        VrexSerializationParameters parameters;
        parameters.generateMissingIds = true;
        VrexSystem3DSerializer serializer(parameters);
        serializer.serialize(makeSystem());
        nsVrexFile::save(file, serializer.jsonStream());
        const std::string text(serializer.jsonStream());
        std::printf("%s\n%zu bytes in %s\n", text.c_str(), text.size(), file.c_str());
        std::filesystem::remove(file);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
