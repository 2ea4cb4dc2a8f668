#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"

class VrexMate3D;

/// Ties a dimension of one mate to a dimension of another by a ratio: kind `MateRelation3D`, degree of
/// constraint 1.
///
/// It binds no geometries: what it is made of are its mates, which it shares with whoever else holds them. An
/// update keeps the mates and takes over indices and ratio, so that an index may then be beyond the
/// dimensions of its mate: compare with `getDimensionSize()` before use.
class VREX_DATA_EXPORT VrexMateRelation3D final : public VrexConstraint3D {
public:
    /// Whether there are two mates, which may be the same one, and for each the index of a dimension.
    [[nodiscard]] static bool canCreate(const std::vector<std::shared_ptr<VrexMate3D>>& mates,
                                        const std::vector<std::uint64_t>& indices);
    /// A relation without identifier; never null. Everything is stored as given.
    [[nodiscard]] static std::shared_ptr<VrexMateRelation3D>
    create(std::vector<std::shared_ptr<VrexMate3D>> mates, std::vector<std::uint64_t> indices, double ratio);

    ~VrexMateRelation3D() override;
    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;
    /// The mates, without nulls.
    std::vector<std::shared_ptr<VrexBaseConstraint>> getConstraints() override;

    const std::vector<std::shared_ptr<VrexMate3D>>& getMates() const { return m_mates; }
    const std::vector<std::uint64_t>& getMateParameterIndexs() const { return m_mateParameterIndices; }
    void setMateParameterIndexs(std::vector<std::uint64_t> indices); ///< Stored as given.
    double getRatio() const { return m_ratio; }
    void setRatio(double ratio) { m_ratio = ratio; }

private:
    friend class VrexConstraintSystemCloner3D;
    friend class VrexObjectAccess;

    VrexMateRelation3D(std::vector<std::shared_ptr<VrexMate3D>> mates, std::vector<std::uint64_t> indices,
                       double ratio);
    VrexMateRelation3D(const VrexMateRelation3D&) = default;
    VrexMateRelation3D& operator=(VrexMateRelation3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
    /// Keeps the mates.
    void doUpdateFrom(const VrexBaseObject& other) override;

    std::vector<std::shared_ptr<VrexMate3D>> m_mates;
    std::vector<std::uint64_t> m_mateParameterIndices;
    double m_ratio;
};
