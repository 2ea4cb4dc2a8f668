#include "data/geometry/3d/VrexArrayPattern3D.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "data/VrexCastList.h"
#include "data/VrexMemberKeeper.h"
#include "data/VrexObjectBody.h"

VREX_OBJECT_BODY(VrexArrayPattern3D)

namespace {

constexpr std::size_t MOST_PATTERNS = 3;

bool isCircular(const std::shared_ptr<VrexPattern3D>& pattern) {
    return pattern != nullptr && pattern->getPatternType() == VrexPattern3DType::Circular3D;
}

} // namespace

std::shared_ptr<VrexArrayPattern3D>
VrexArrayPattern3D::create(std::vector<std::shared_ptr<VrexPattern3D>> patterns) {
    return VrexObjectAccess::make<VrexArrayPattern3D>(std::move(patterns));
}

bool VrexArrayPattern3D::canCreate(const std::vector<std::shared_ptr<VrexPattern3D>>& patterns) {
    return !patterns.empty() && patterns.size() <= MOST_PATTERNS &&
           std::count(patterns.begin(), patterns.end(), nullptr) == 0 &&
           std::count_if(patterns.begin(), patterns.end(), isCircular) <= 1;
}

VrexArrayPattern3D::VrexArrayPattern3D(std::vector<std::shared_ptr<VrexPattern3D>> patterns)
    : VrexGeometry3D(VrexGeometry3DType::ARRAY_PATTERN, PARAMETERS_AMOUNT), m_patterns(std::move(patterns)) {
    updateCircularPatternIdx();
}

const char* VrexArrayPattern3D::getNamePrefix() const { return "a_pat"; }

int VrexArrayPattern3D::dof() const { return 0; }

std::vector<std::shared_ptr<VrexBaseGeometry>> VrexArrayPattern3D::getGeometries() const {
    return keepOnly<VrexBaseGeometry>(m_patterns);
}

bool VrexArrayPattern3D::isPattern() const { return true; }

void VrexArrayPattern3D::updateCircularPatternIdx() {
    for (std::size_t i = 0; i < m_patterns.size(); ++i) {
        if (isCircular(m_patterns[i])) {
            m_circularPatternIdx = static_cast<int>(i);
        }
    }
}

void VrexArrayPattern3D::doUpdateFrom(const VrexBaseObject& other) {
    const VrexMemberKeeper kept(m_patterns);
    VrexGeometry3D::doUpdateFrom(other);
}
