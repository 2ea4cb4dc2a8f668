#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3DType.h"
#include "data/constraint/3d/VrexFixation3DType.h"
#include "data/geometry/3d/VrexGeometry3DType.h"
#include "data/geometry/VrexGeometryComponentType.h"

class VrexGeometry3D;
class VrexGeometry3DTypeSet;
class VrexLogRecorder;
class VrexToleranceGetter;

namespace nsPreValidation {
struct Rule;
} // namespace nsPreValidation

/// Says, before a constraint is created, whether these geometries may carry one of this kind.
///
/// A refusal records a code and a text in the recorder, writes a line to the log and returns false; nothing
/// else changes. Number the geometries first: they are told apart by identifier, and two that have none yet
/// are taken for the same one.
///
/// Most kinds take their geometries in any order. That says nothing about `create`, which wants them in its
/// own: the plane of a symmetry last, the surface of a surface normal first. The `canCreate` operations have
/// rules of their own, too.
class VREX_DATA_EXPORT VrexConstraint3DPreValidator {
public:
    using Geometries = std::vector<std::shared_ptr<VrexGeometry3D>>;

    /// The recorder outlives this object; the tolerances play no part.
    VrexConstraint3DPreValidator(const VrexToleranceGetter& tolerances, VrexLogRecorder& recorder);

    /// Whether a constraint of this kind may bind the geometries, at these components of the first two. Only
    /// distance, incidence, tangency and equal radius look at the components. Throws `std::out_of_range`
    /// where they come to `EXTERIOR`.
    bool preCheckConstraint3DType(const Geometries& geometries, VrexConstraint3DType type,
                                  VrexGeometryComponentType component1,
                                  VrexGeometryComponentType component2) const;
    /// Whether a fixation may hold this of the one geometry.
    bool preCheckFixation3DType(const Geometries& geometries, VrexFixation3DType type) const;
    /// Whether a geometry of kind `type` has the component. Throws `std::out_of_range` "invalid map<K, T>
    /// key" for `EXTERIOR` and for a value that is no component.
    bool preCheckConstraintComponent3DType(VrexGeometry3DType type,
                                           VrexGeometryComponentType component) const;
    /// The kind as which this component of a geometry is matched: an axis is a line. Stores it in `out`, too.
    /// `UNKNOWN`, with a line in the log, for `EXTERIOR` and for a value that is no component.
    static VrexGeometry3DType convertComponentToGeomType(VrexGeometry3DType type,
                                                         VrexGeometryComponentType component,
                                                         VrexGeometry3DType& out);

private:
    /// `convertedTypes` stand for those of the geometries, one each, unless there are none.
    bool checkGeometriesTypes3D(const Geometries& geometries, const nsPreValidation::Rule& rule,
                                std::span<const VrexGeometry3DType> convertedTypes) const;
    bool checkGeometriesSupportList3D(const Geometries& geometries, const VrexGeometry3DTypeSet& types,
                                      std::size_t count) const;
    bool checkComponents(const Geometries& geometries, const nsPreValidation::Rule& rule,
                         VrexGeometryComponentType component1, VrexGeometryComponentType component2) const;
    bool checkRadiusComponents(const Geometries& geometries, const nsPreValidation::Rule& rule,
                               VrexGeometryComponentType component1,
                               VrexGeometryComponentType component2) const;
    bool checkGeometries(const Geometries& geometries, std::size_t count, bool distinct) const;
    bool checkSize(const Geometries& geometries, std::size_t count) const;
    bool checkDistinct(const Geometries& geometries) const;
    bool checkPresent(const Geometries& geometries) const;
    bool refuseCombination(const Geometries& geometries) const;
    bool refuseComponents() const;

    VrexLogRecorder& m_recorder;
};
