#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "data/VrexExport.h"
#include "data/VrexVector2DT.h"
#include "data/VrexVector3DT.h"
#include "data/constraint/VrexConstraintManager.h"

class VrexConstraint3D;
class VrexGeometry3D;

/// The constraints of a system in space, and the checked operations on their help values.
///
/// A help value belongs to the first or the second geometry of a constraint: the index says which, or the
/// geometry does where no index, or the largest one, is given. Indices of help points are 1 and 2, those of
/// help parameters `HPARAMU1` and `HPARAMU2` of `VrexConstraint3D`; with an index the geometry need not be
/// one of the constraint's. A geometry that stands in both places means the first.
///
/// Each operation first checks the geometry, then the constraint. Refusals are recorded, and leave all as it
/// was.
class VREX_DATA_EXPORT VrexConstraintManager3D : public VrexConstraintManager {
public:
    using Constraint = std::shared_ptr<VrexConstraint3D>;
    using Geometry = std::shared_ptr<VrexGeometry3D>;

    using VrexConstraintManager::VrexConstraintManager;

    /// Sets a help point of the stored constraint that has the identifier of `constraint`, which becomes
    /// dirty. Takes curves, surfaces and spheres.
    bool createHelpPoint(const Constraint& constraint, const Geometry& geometry,
                         const VrexVector3DT<double>& point, std::uint64_t index = INVALID_HELP_POINT_INDEX);
    /// Reads a help point of `constraint` itself; false, with nothing recorded, where none is set.
    bool enquireHelpPoint(const Constraint& constraint, const Geometry& geometry, std::uint64_t index,
                          VrexVector3DT<double>& out);
    bool enquireHelpPoint(const Constraint& constraint, const Geometry& geometry, VrexVector3DT<double>& out);

    /// Sets a help parameter in the same way, brought into the range of `geometry`; that of an ellipse or a
    /// periodic spline which is not trimmed at both ends has no limits. Takes curves and surfaces, but no
    /// circle, cylinder, cone or torus.
    bool createHelpParameter(const Constraint& constraint, const Geometry& geometry,
                             const VrexVector2DT<double>& parameter,
                             std::uint64_t index = INVALID_PARAMETER_INDEX);
    /// Reads a help parameter of `constraint` itself; false, with nothing recorded, where none is set.
    bool enquireHelpParameter(const Constraint& constraint, const Geometry& geometry, std::uint64_t index,
                              VrexVector2DT<double>& out) const;
    bool enquireHelpParameter(const Constraint& constraint, const Geometry& geometry,
                              VrexVector2DT<double>& out) const;

    /// Holds a help parameter of `constraint` itself while solving, or lets it go. The constraint becomes
    /// dirty when that changes something.
    bool setHelpParameterFixedState(const Constraint& constraint, const Geometry& geometry,
                                    std::uint64_t index, const bool& state);
    bool setHelpParameterFixedState(const Constraint& constraint, const Geometry& geometry,
                                    const bool& state);
    /// Neither the kind of the geometry nor the constraint's support is checked.
    bool getHelpParameterFixedState(const Constraint& constraint, const Geometry& geometry,
                                    std::uint64_t index, bool& out) const;
    bool getHelpParameterFixedState(const Constraint& constraint, const Geometry& geometry, bool& out) const;

    /// Unbinds every stored dimension from this variable, and makes it dirty.
    ///
    /// A dimension then has the number again that it held before it was bound; to keep the variable's, read
    /// it before and set it after.
    void removeFromReleatedDimension(const std::shared_ptr<VrexBaseGeometry>& geometry);

protected:
    /// Brings a help parameter into the range of the geometry, as `createHelpParameter` tells. False, and
    /// recorded, for what is neither curve nor surface. A NaN stays.
    bool adjustHelpParameterRange(const VrexGeometry3D& geometry, VrexVector2DT<double>& parameter) const;

private:
    bool checkConstraintSupportHelpPoint(const Constraint& constraint) const;
    bool checkConstraintSupportHelpParameter(const Constraint& constraint) const;
    bool checkHelpPointGeometry(const Geometry& geometry) const;
    bool checkHelpParameterGeometry(const Geometry& geometry) const;
    /// The stored constraint changes by `change`, and becomes dirty if that says so.
    bool update(std::uint64_t id, const std::function<bool(VrexConstraint3D&)>& change);

    bool addHelpPoint(VrexConstraint3D& constraint, const Geometry& geometry,
                      const VrexVector3DT<double>& point) const;
    bool addHelpPoint(VrexConstraint3D& constraint, std::uint64_t index,
                      const VrexVector3DT<double>& point) const;
    bool getHelpPoint(const VrexConstraint3D& constraint, const Geometry& geometry,
                      VrexVector3DT<double>& out) const;
    bool getHelpPoint(const VrexConstraint3D& constraint, std::uint64_t index,
                      VrexVector3DT<double>& out) const;
    bool addHelpParameter(VrexConstraint3D& constraint, const Geometry& geometry, std::uint64_t index,
                          const VrexVector2DT<double>& parameter) const;
    /// Which of the two help parameters is meant; 0, and recorded, for neither. `purpose` is what failed
    /// then, as "get the help parameter".
    int selectHelpParameter(const VrexConstraint3D& constraint, const Geometry& geometry, std::uint64_t index,
                            const char* purpose) const;
    bool refuseFixedState(const VrexConstraint3D& constraint, int number) const;
};
