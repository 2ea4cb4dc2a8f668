#include "tools/vrex/VrexUnwritable.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <iterator>
#include <memory>
#include <vector>

#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "data/serialization/3d/VrexSystem3DSerializer.h"

namespace {

/// The first `count` elements; the count is less by those afterwards.
template <class Object>
std::vector<std::shared_ptr<Object>> take(const std::vector<std::shared_ptr<Object>>& list,
                                          std::size_t& count) {
    const std::size_t taken = std::min(count, list.size());
    count -= taken;
    return {list.begin(), list.begin() + static_cast<std::ptrdiff_t>(taken)};
}

/// The objects alone that are written first.
VrexImmutableSystem3D beginOf(const VrexImmutableSystem3D& system, std::size_t count) {
    auto variables = take(system.variables(), count);
    auto geometries = take(system.geometries(), count);
    auto constraints = take(system.constraints(), count);
    auto equations = take(system.equations(), count);
    return {geometries, variables, constraints, equations, 0.0, 0.0, {}, {}};
}

bool canWrite(const VrexImmutableSystem3D& system) {
    try {
        return VrexSystem3DSerializer({}).serialize(system);
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace

const VrexBaseObject* nsVrexUnwritable::find(const VrexImmutableSystem3D& system) {
    std::vector<const VrexBaseObject*> objects;
    const auto append = [&objects](const auto& list) {
        std::ranges::transform(list, std::back_inserter(objects),
                               [](const auto& object) { return object.get(); });
    };
    append(system.variables());
    append(system.geometries());
    append(system.constraints());
    append(system.equations());
    // Objects name those before them only, so what fails with a few of them fails with more.
    const auto found =
        std::partition_point(objects.begin(), objects.end(), [&](const VrexBaseObject* const& last) {
            return canWrite(beginOf(system, static_cast<std::size_t>(&last - objects.data()) + 1));
        });
    return found != objects.end() ? *found : nullptr;
}
