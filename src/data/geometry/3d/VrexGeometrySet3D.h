#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/geometry/3d/VrexGeometry3D.h"

/// The base of the sets: entities that belong together.
///
/// A set shares ownership of its members and says nothing of where they are; moving a set moves none of them.
/// Nothing keeps a null out, nor an entity that owns the set, and such a ring is never released: whoever ties
/// it has to untie it.
class VREX_DATA_EXPORT VrexGeometrySet3D : public VrexGeometry3D {
public:
    static constexpr int X = 0, Y = 1, Z = 2;
    static constexpr int SCALAR = 3, I = 4, J = 5, K = 6;

    ~VrexGeometrySet3D() override;
    void accept(VrexVisitor3D& visitor) override;
    /// The members in order, without nulls.
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const override;

    /// The members as they stand.
    std::vector<std::shared_ptr<VrexGeometry3D>>& geometries() { return m_geometries; }
    const std::vector<std::shared_ptr<VrexGeometry3D>>& geometries() const { return m_geometries; }

protected:
    /// Throws `std::runtime_error` for a kind that is no set.
    VrexGeometrySet3D(VrexGeometry3DType type, std::uint32_t parameterCount);
    VrexGeometrySet3D(const VrexGeometrySet3D&) = default;
    VrexGeometrySet3D(VrexGeometrySet3D&&) = default;
    VrexGeometrySet3D& operator=(const VrexGeometrySet3D&) = default;
    VrexGeometrySet3D& operator=(VrexGeometrySet3D&&) = default;

    /// Keeps the members.
    void doUpdateFrom(const VrexBaseObject& other) override;

private:
    std::vector<std::shared_ptr<VrexGeometry3D>> m_geometries;
};
