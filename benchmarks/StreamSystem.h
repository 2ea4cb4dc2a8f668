#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"

/// What bench_stream sends: 10,000 sets of six geometries and four constraints, every other object labelled,
/// one distance in three with limits, one in five with help points.
struct StreamSystem {
    static constexpr std::uint64_t SETS = 10'000;

    std::vector<std::shared_ptr<VrexBaseGeometry>> geometries;
    std::vector<std::shared_ptr<VrexBaseConstraint>> constraints;

    StreamSystem() {
        geometries.reserve(6 * SETS);
        constraints.reserve(4 * SETS);
        for (std::uint64_t set = 0; set < SETS; ++set) {
            addSet(set);
        }
    }

private:
    void addSet(std::uint64_t set) {
        const double x = 0.25 * static_cast<double>(set);
        const auto point1 = geometry(VrexPoint3D::create(x, 1.0, -2.0));
        const auto point2 = geometry(VrexPoint3D::create(1.5, x, 3.0));
        const auto line = geometry(VrexLine3D::create({x, 2.0, 0.5}, {1.0, 2.0, x}));
        const auto plane = geometry(VrexPlane3D::create({x, 0.0, x}, {x, 1.0, -1.0}));
        const auto circle = geometry(VrexCircle3D::create({0.0, x, 1.0}, {1.0, x, 1.0}, 2.0));
        circle->start() = 0.25;
        const auto cylinder = geometry(VrexCylinder3D::create({x, 1.0, 0.0}, {1.0, -1.0, x}, 0.5));
        constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;
        const auto distance = constraint(VrexDistance3D::create(point1, plane, x, WHOLE, WHOLE));
        if (set % 3 == 0) {
            distance->setLimits({x - 1.0, x + 1.0});
        }
        if (set % 5 == 0) {
            distance->setHelpPoint1({x, 1.0, -2.0});
            distance->setHelpPoint2({x, 0.0, x});
        }
        constraint(VrexDistance3D::create(point1, point2, 1.0, WHOLE, WHOLE));
        constraint(VrexIncidence3D::create(point2, circle, VrexIncidence3DType::Default, WHOLE, WHOLE));
        constraint(VrexParallelism3D::create(line, cylinder));
    }
    template <class Geometry>
    std::shared_ptr<Geometry> geometry(std::shared_ptr<Geometry> object) {
        return add(geometries, std::move(object), "g");
    }
    template <class Constraint>
    std::shared_ptr<Constraint> constraint(std::shared_ptr<Constraint> object) {
        return add(constraints, std::move(object), "c");
    }
    template <class List, class Object>
    static std::shared_ptr<Object> add(List& list, std::shared_ptr<Object> object, const char* prefix) {
        list.push_back(object);
        object->setID(list.size());
        if (list.size() % 2 == 0) {
            object->label() = prefix + std::to_string(list.size());
        }
        return object;
    }
};
