#pragma once

#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/3d/VrexPattern3D.h"

/// Up to three patterns combined, at most one of them circular: kind `ARRAY_PATTERN`, name prefix "a_pat", no
/// parameters and no degree of freedom of its own.
///
/// The rule is `canCreate`, which nothing here enforces. The place of the circular pattern is remembered and
/// not kept in step with the list: after a change of the list call `updateCircularPatternIdx`, and check the
/// range before the index is used.
class VREX_DATA_EXPORT VrexArrayPattern3D final : public VrexGeometry3D {
public:
    static constexpr int PARAMETERS_AMOUNT = 0;
    /// An array pattern without identifier; never null. Takes any list, also one that `canCreate` refuses.
    [[nodiscard]] static std::shared_ptr<VrexArrayPattern3D>
    create(std::vector<std::shared_ptr<VrexPattern3D>> patterns);
    /// Whether the list has one to three elements, none null and at most one circular.
    static bool canCreate(const std::vector<std::shared_ptr<VrexPattern3D>>& patterns);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// The patterns in order, without nulls.
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const override;
    bool isPattern() const override; ///< True.

    /// The patterns as they stand.
    std::vector<std::shared_ptr<VrexPattern3D>>& getPatterns() { return m_patterns; }
    const std::vector<std::shared_ptr<VrexPattern3D>>& getPatterns() const { return m_patterns; }
    /// The place of the circular pattern, -1 for none. After `updateFrom` it is the other object's, while the
    /// list stays this one's.
    int getCircularPatternIdx() const { return m_circularPatternIdx; }
    /// Takes the place of the last circular pattern of the list. Kept: without one the former place stays.
    void updateCircularPatternIdx();

private:
    friend class VrexObjectAccess;

    explicit VrexArrayPattern3D(std::vector<std::shared_ptr<VrexPattern3D>> patterns);
    VrexArrayPattern3D(const VrexArrayPattern3D&) = default;
    VrexArrayPattern3D& operator=(VrexArrayPattern3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
    /// Keeps the patterns.
    void doUpdateFrom(const VrexBaseObject& other) override;

    std::vector<std::shared_ptr<VrexPattern3D>> m_patterns;
    int m_circularPatternIdx = -1;
};
