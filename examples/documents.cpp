// Writes the documents of examples/data into the folder that it is given: a sketch of a part, a system that
// says one thing twice and one that contradicts itself.

#include <cstddef>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexPerpendicularity3D.h"
#include "data/constraint/3d/VrexRadius3D.h"
#include "data/constraint/3d/VrexTangency3D.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "data/serialization/3d/VrexSystem3DSerializer.h"
#include "tools/vrex/VrexFile.h"

namespace {

using Component = VrexGeometryComponentType;
using Geometry = std::shared_ptr<VrexGeometry3D>;

constexpr auto WHOLE = Component::UNKNOWN;

/// Collects a system, every object with a label.
class Sketch {
public:
    template <class Class>
    std::shared_ptr<Class> add(const char* label, std::shared_ptr<Class> geometry) {
        geometry->label() = label;
        m_geometries.push_back(geometry);
        return geometry;
    }
    const Geometry& at(std::size_t place) const { return m_geometries[place]; }
    void bind(const char* label, const std::shared_ptr<VrexConstraint3D>& constraint) {
        constraint->label() = label;
        m_constraints.push_back(constraint);
    }
    void fix(const char* label, const Geometry& geometry) {
        bind(label, VrexFixation3D::create(geometry, VrexFixation3DType::Complete3D));
    }
    void distance(const char* label, const Geometry& first, const Geometry& second, double value,
                  Component part = WHOLE) {
        bind(label, VrexDistance3D::create(first, second, value, part, part));
    }
    void incidence(const char* label, const Geometry& first, const Geometry& second, Component part = WHOLE) {
        bind(label, VrexIncidence3D::create(first, second, VrexIncidence3DType::Default, part, WHOLE));
    }
    void tangency(const char* label, const Geometry& first, const Geometry& second) {
        bind(label, VrexTangency3D::create(first, second, WHOLE, WHOLE));
    }
    void radius(const char* label, const Geometry& geometry, double value) {
        bind(label, VrexRadius3D::create(geometry, value, VrexRadius3DType::Radius3D));
    }

    void save(const std::filesystem::path& file) const {
        VrexSerializationParameters parameters;
        parameters.generateMissingIds = true;
        VrexSystem3DSerializer serializer(parameters);
        serializer.serialize({m_geometries, {}, m_constraints, {}, 1e-8, 1e-11, {}, {}});
        nsVrexFile::save(file, std::string(serializer.jsonStream()).append("\n"));
        std::printf("%s\n", file.c_str());
    }

private:
    std::vector<Geometry> m_geometries;
    std::vector<std::shared_ptr<VrexConstraint3D>> m_constraints;
};

/// A belt around a hub and a roller, and a ball that rolls on the plate and against the roller.
Sketch partSketch() {
    Sketch sketch;
    const auto plate = sketch.add("plate", VrexPlane3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}));
    const auto middle = sketch.add("middle", VrexPlane3D::create({0.0, 0.0, 0.0}, {0.0, 1.0, 0.0}));
    const auto hub = sketch.add("hub", VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 2.0));
    const auto roller = sketch.add("roller", VrexSphere3D::create({4.6, 0.2, 0.1}, 1.1));
    const auto belt = sketch.add("belt", VrexLine3D::create({0.2, 2.1, 0.1}, {1.0, -0.1, 0.02}));
    const auto ball = sketch.add("ball", VrexSphere3D::create({6.0, 1.0, 0.6}, 0.4));
    sketch.fix("plate stands", plate);
    sketch.fix("middle stands", middle);
    sketch.fix("hub stands", hub);
    sketch.incidence("roller on plate", roller, plate, Component::CENTER);
    sketch.incidence("roller in middle", roller, middle, Component::CENTER);
    sketch.distance("shafts", hub, roller, 5.0, Component::CENTER);
    sketch.radius("roller radius", roller, 1.0);
    sketch.tangency("belt at hub", belt, hub);
    sketch.tangency("belt at roller", belt, roller);
    sketch.radius("ball radius", ball, 0.5);
    sketch.tangency("ball on plate", ball, plate);
    sketch.tangency("ball at roller", ball, roller);
    return sketch;
}

/// Three points at these distances from each other.
Sketch triangle(double ab, double ac, double bc) {
    Sketch sketch;
    const auto a = sketch.add("A", VrexPoint3D::create(0.0, 0.0, 0.0));
    const auto b = sketch.add("B", VrexPoint3D::create(3.1, 0.2, 0.0));
    const auto c = sketch.add("C", VrexPoint3D::create(-0.2, 3.9, 0.1));
    sketch.distance("AB", a, b, ab);
    sketch.distance("AC", a, c, ac);
    sketch.distance("BC", b, c, bc);
    return sketch;
}

/// A triangle whose sides make the angle right that is asked to be right once more; the loose point is free.
Sketch overConstrained() {
    Sketch sketch = triangle(3.0, 4.0, 5.0);
    const auto ab = sketch.add("line AB", VrexLine3D::create({0.0, 0.0, 0.0}, {1.0, 0.1, 0.0}));
    const auto ac = sketch.add("line AC", VrexLine3D::create({0.0, 0.0, 0.0}, {0.1, 1.0, 0.0}));
    const auto loose = sketch.add("loose", VrexPoint3D::create(5.0, 5.0, 5.0));
    sketch.incidence("A on AB", sketch.at(0), ab);
    sketch.incidence("B on AB", sketch.at(1), ab);
    sketch.incidence("A on AC", sketch.at(0), ac);
    sketch.incidence("C on AC", sketch.at(2), ac);
    sketch.bind("right angle", VrexPerpendicularity3D::create(ab, ac));
    sketch.distance("loose from A", sketch.at(0), loose, 8.0);
    return sketch;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: documents FOLDER\n");
        return 1;
    }
    try {
        const std::filesystem::path folder = arguments[1];
        std::filesystem::create_directories(folder);
        partSketch().save(folder / "part_sketch.json");
        overConstrained().save(folder / "over_constrained.json");
        triangle(3.0, 4.0, 8.0).save(folder / "inconsistent.json");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
