#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexGeometry3DType.h"
#include "data/geometry/3d/VrexGeometryBiasData3D.h"
#include "data/geometry/VrexGeometry.h"

/// The base of the entities in space: a kind and a parameter vector, which the solver varies and the
/// accessors interpret.
///
/// A direction is never stored as a vector but as two spherical angles in radians, polar and azimuthal, and
/// so has unit length whatever is written into them. Nothing is validated: a NaN is stored as given.
class VREX_DATA_EXPORT VrexGeometry3D : public VrexGeometry {
public:
    void accept(VrexVisitor3D& visitor) override;
    virtual bool isParametricCurve() const;
    virtual bool isParametricSurface() const;

    VrexGeometry3DType type() const { return m_type; }
    /// The solver's own records about this entity; empty at first.
    std::optional<VrexGeometryBiasData3D>& biasData() { return m_biasData; }
    const std::optional<VrexGeometryBiasData3D>& biasData() const { return m_biasData; }
    /// The entities that this one is built on.
    std::vector<std::shared_ptr<VrexGeometry3D>> geometries() const;

protected:
    static constexpr double m_defaultTolerance = 1e-06;

    VrexGeometry3D(VrexGeometry3DType type, std::uint32_t parameterCount);
    VrexGeometry3D(const VrexGeometry3D&) = default;
    VrexGeometry3D(VrexGeometry3D&&) = default;
    VrexGeometry3D& operator=(const VrexGeometry3D&) = default;
    VrexGeometry3D& operator=(VrexGeometry3D&&) = default;

    /// The three slots from `firstSlot` on as a vector.
    VrexVector3DT<double> getVectorParameter(int firstSlot) const {
        return {getParameter(firstSlot), getParameter(firstSlot + 1), getParameter(firstSlot + 2)};
    }
    void setVectorParameter(int firstSlot, const VrexVector3DT<double>& vector);
    /// The two slots from `polarSlot` on, polar and azimuthal angle, as a unit vector.
    VrexVector3DT<double> getDirectionParameter(int polarSlot) const;
    /// Takes a vector of any non-zero length; a zero vector gives the angles 0 and 0.
    void setDirectionParameter(int polarSlot, const VrexVector3DT<double>& direction);
    /// The shortest rotation that takes the Z axis to `direction`, a unit vector; a half turn is about the X
    /// axis.
    static VrexQuaternionT<double> makeRotationFromOZ(const VrexVector3DT<double>& direction);
    /// The four slots from `scalarSlot` on, the scalar first, as a quaternion.
    VrexQuaternionT<double> getRotationParameter(int scalarSlot) const;
    /// Stores the four parts as they are.
    void setRotationParameter(int scalarSlot, const VrexQuaternionT<double>& rotation);
    /// False, and nothing stored, unless the norm of `rotation` is 1 within 1e-06.
    bool setUnitRotationParameter(int scalarSlot, const VrexQuaternionT<double>& rotation);
    /// Stores the rotation that takes the X axis to `direction` and the Z axis to `normal`, which may have
    /// any length above 1e-06. False, and nothing stored, unless they stand at a right angle within 1e-06.
    bool setFrameParameter(int scalarSlot, const VrexVector3DT<double>& direction,
                           const VrexVector3DT<double>& normal);
    /// `vector` turned by the rotation in the slots from `scalarSlot` on.
    VrexVector3DT<double> rotateByParameter(int scalarSlot, const VrexVector3DT<double>& vector) const;

private:
    VrexGeometry3DType m_type;
    std::optional<VrexGeometryBiasData3D> m_biasData;
};
