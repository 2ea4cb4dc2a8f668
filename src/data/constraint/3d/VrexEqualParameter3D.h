#pragma once

#include <array>
#include <memory>
#include <utility>
#include <vector>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"

class VrexGeometry3D;

/// Help parameters of two constraints that mark one place on the geometry that both share: kind
/// `EqualParameter3D`, degree of constraint 1.
///
/// Each constraint has a pair of indices of its help values, (`HPARAMU1`, `HPARAMV1`) or (`HPARAMU2`,
/// `HPARAMV2`). The shared geometry is the one element of the geometry list. An update keeps constraints and
/// pairs.
class VREX_DATA_EXPORT VrexEqualParameter3D final : public VrexConstraint3D {
public:
    using ParameterIndices = std::pair<int, int>;

    /// Whether both constraints are there, and the first index of each pair leads to the same geometry, a
    /// parametric curve or surface.
    [[nodiscard]] static bool canCreate(const std::shared_ptr<VrexConstraint3D>& constraint1,
                                        const ParameterIndices& indices1,
                                        const std::shared_ptr<VrexConstraint3D>& constraint2,
                                        const ParameterIndices& indices2);
    /// A constraint without identifier; never null. Everything is stored as given; the geometry is the one
    /// that the first index leads to in the first constraint.
    [[nodiscard]] static std::shared_ptr<VrexEqualParameter3D>
    create(const std::shared_ptr<VrexConstraint3D>& constraint1, const ParameterIndices& indices1,
           const std::shared_ptr<VrexConstraint3D>& constraint2, const ParameterIndices& indices2);
    /// The same with the pairs found: for each constraint the first whose index leads to `geometry`, (0, 0)
    /// if there is none.
    [[nodiscard]] static std::shared_ptr<VrexEqualParameter3D>
    create(const std::shared_ptr<VrexGeometry3D>& geometry,
           const std::shared_ptr<VrexConstraint3D>& constraint1,
           const std::shared_ptr<VrexConstraint3D>& constraint2);

    ~VrexEqualParameter3D() override;

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;
    /// The two constraints, without nulls.
    std::vector<std::shared_ptr<VrexBaseConstraint>> getConstraints() override;

    /// The pairs, in the order of the constraints.
    std::array<ParameterIndices, 2>& getParameterIndices() { return m_parameterIndices; }
    const std::array<ParameterIndices, 2>& getParameterIndices() const { return m_parameterIndices; }

private:
    friend class VrexConstraintSystemCloner3D;
    friend class VrexObjectAccess;

    using Constraints = std::array<std::shared_ptr<VrexConstraint3D>, 2>;

    VrexEqualParameter3D(const std::shared_ptr<VrexGeometry3D>& geometry, Constraints constraints,
                         const std::array<ParameterIndices, 2>& indices);
    VrexEqualParameter3D(const VrexEqualParameter3D&) = default;
    VrexEqualParameter3D& operator=(VrexEqualParameter3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
    /// Keeps the constraints and their pairs.
    void doUpdateFrom(const VrexBaseObject& other) override;

    Constraints m_constraints;
    std::array<ParameterIndices, 2> m_parameterIndices;
};
