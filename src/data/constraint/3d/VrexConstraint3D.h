#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVector2DT.h"
#include "data/VrexVector3DT.h"
#include "data/constraint/3d/VrexConstraint3DType.h"
#include "data/constraint/3d/VrexConstraintBiasData3D.h"
#include "data/constraint/VrexConstraint.h"
#include "data/geometry/3d/VrexGeometry3DType.h"
#include "data/geometry/VrexGeometryComponentType.h"

class VrexGeometry3D;

/// The base of the constraints in space: a kind and, for each of the first two geometries, the component
/// that is bound, a help point and a help parameter.
///
/// Help values select the solution branch: a point on the geometry, or its parameters (u, v) there; a curve
/// uses u alone. Geometries are numbered from 1, in the order of the list.
class VREX_DATA_EXPORT VrexConstraint3D : public VrexConstraint {
public:
    /// Indices of the help values: the coordinates of both points, then both parameter pairs.
    static constexpr int HP1X = 0, HP1Y = 1, HP1Z = 2;
    static constexpr int HP2X = 3, HP2Y = 4, HP2Z = 5;
    static constexpr int HPARAMU1 = 6, HPARAMV1 = 7;
    static constexpr int HPARAMU2 = 8, HPARAMV2 = 9;
    static constexpr int CONSTRAINT_HELP_POINT_INDICES_AMOUNT = 6;
    static constexpr int PARAMETERS_AMOUNT = 10;

    ~VrexConstraint3D() override;

    void accept(VrexVisitor3D& visitor) override;
    /// The geometry that the help value of this index belongs to; null for an index beyond the ten.
    virtual std::shared_ptr<VrexGeometry3D> getGeometryByParameterIndex(std::uint64_t index) const;

    VrexConstraint3DType type() const { return m_type; }
    /// The entity of this number. Null with a line in the log for 0, for a number beyond the list and for a
    /// bound variable; null for an element that is null.
    std::shared_ptr<VrexGeometry3D> geometry(std::uint32_t number) const;
    /// The bound entities, in order, without the variables.
    std::vector<std::shared_ptr<VrexGeometry3D>> getGeometries3D() const;
    std::uint64_t getGeometries3DCount() const;
    /// The first entity of this kind, or null.
    std::shared_ptr<VrexGeometry3D> getGeometryByType(VrexGeometry3DType type) const;
    std::vector<std::shared_ptr<VrexGeometry3D>> getGeometriesByType(VrexGeometry3DType type) const;

    /// The component of geometry 1 or 2. Throws `std::out_of_range` for any other number.
    VrexGeometryComponentType getGeomComponentType(std::uint32_t number) const;
    /// Does nothing when the geometry is missing or its kind has no such component. Throws
    /// `std::out_of_range` for a geometry beyond the second, whatever the component.
    void setGeomComponentType(std::uint32_t number, VrexGeometryComponentType component);

    std::optional<VrexVector3DT<double>>& helpPoint1() { return m_helpPoint1; }
    const std::optional<VrexVector3DT<double>>& helpPoint1() const { return m_helpPoint1; }
    std::optional<VrexVector3DT<double>>& helpPoint2() { return m_helpPoint2; }
    const std::optional<VrexVector3DT<double>>& helpPoint2() const { return m_helpPoint2; }
    std::optional<VrexVector2DT<double>>& helpParam1() { return m_helpParam1; }
    const std::optional<VrexVector2DT<double>>& helpParam1() const { return m_helpParam1; }
    std::optional<VrexVector2DT<double>>& helpParam2() { return m_helpParam2; }
    const std::optional<VrexVector2DT<double>>& helpParam2() const { return m_helpParam2; }
    /// The setters of help values leave the dirty flag alone.
    void setHelpPoint1(const VrexVector3DT<double>& point) { m_helpPoint1 = point; }
    void setHelpPoint2(const VrexVector3DT<double>& point) { m_helpPoint2 = point; }
    void setHelpParam1(const VrexVector2DT<double>& parameters) { m_helpParam1 = parameters; }
    void setHelpParam2(const VrexVector2DT<double>& parameters) { m_helpParam2 = parameters; }

    /// Whether the help parameter of the first geometry is held while solving.
    bool fixHelpParameter1() const { return m_fixHelpParameter1; }
    bool fixHelpParameter2() const { return m_fixHelpParameter2; }
    /// Does nothing, whatever the value, without the geometry or for a kind that cannot hold its parameter.
    void fixHelpParameter1(bool fix);
    void fixHelpParameter2(bool fix);
    /// True for the kinds whose parameter has no fixed origin: cylinder, circle, cone and torus.
    static bool notSupportFixHelpParameterType(VrexGeometry3DType type);

    /// The solver's own records about this constraint; empty at first.
    std::optional<VrexConstraintBiasData3D>& biasData() { return m_biasData; }
    const std::optional<VrexConstraintBiasData3D>& biasData() const { return m_biasData; }

protected:
    VrexConstraint3D(VrexConstraint3DType type, VrexGeometryComponentType component1,
                     VrexGeometryComponentType component2)
        : m_type(type), m_geomComponents{component1, component2} {}
    /// Without components.
    explicit VrexConstraint3D(VrexConstraint3DType type)
        : VrexConstraint3D(type, VrexGeometryComponentType::UNKNOWN, VrexGeometryComponentType::UNKNOWN) {}
    VrexConstraint3D(const VrexConstraint3D&) = default;
    VrexConstraint3D(VrexConstraint3D&&) = default;
    VrexConstraint3D& operator=(const VrexConstraint3D&) = default;
    VrexConstraint3D& operator=(VrexConstraint3D&&) = default;

    /// Whether a geometry of this kind has this component; the components that no row restricts, `UNKNOWN`,
    /// `MAJOR`, `MINOR` and `EXTERIOR`, every kind has.
    static bool supportedGeomTypeForComponentType(VrexGeometry3DType type,
                                                  VrexGeometryComponentType component);

private:
    friend class VrexAssigner3DImpl;
    friend struct VrexGeomComponentsAccess;

    bool canFixHelpParameter(std::uint32_t number) const;

    VrexConstraint3DType m_type;
    std::optional<VrexVector3DT<double>> m_helpPoint1;
    std::optional<VrexVector3DT<double>> m_helpPoint2;
    std::optional<VrexVector2DT<double>> m_helpParam1;
    std::optional<VrexVector2DT<double>> m_helpParam2;
    std::optional<VrexConstraintBiasData3D> m_biasData;
    std::array<VrexGeometryComponentType, 2> m_geomComponents;
    bool m_fixHelpParameter1 = false;
    bool m_fixHelpParameter2 = false;
};
