#include "tools/vrex/VrexConstraintCheck.h"

#include <cstdint>
#include <stdexcept>
#include <string_view>

#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/3d/VrexEqualDimension3D.h"
#include "data/constraint/3d/VrexEqualParameter3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexIncidenceToCenter3D.h"
#include "data/constraint/3d/VrexMateRelation3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"

namespace {

using enum VrexConstraint3DType;

constexpr std::uint32_t NO_SOLVER = 0;

/// The message of a recorder without what it puts around it.
std::string plainTextOf(const VrexLogRecorder& recorder) {
    constexpr std::string_view BEFORE = "]: ", BEHIND = ", ErrorCode: ";
    std::string_view text = recorder.getErrorMessage();
    const auto begin = text.find(BEFORE);
    const auto end = text.rfind(BEHIND);
    if (begin == std::string_view::npos || end == std::string_view::npos) {
        return std::string(text);
    }
    return std::string(text.substr(begin + BEFORE.size(), end - begin - BEFORE.size()));
}

bool canCenter(VrexConstraint3D& constraint) {
    const auto geometries = constraint.getGeometries3D();
    return geometries.size() == 2 &&
           VrexIncidenceToCenter3D::canCreate(geometries[0]->type(), geometries[1]->type());
}

bool canShareParameter(VrexConstraint3D& constraint) {
    auto& equality = dynamic_cast<VrexEqualParameter3D&>(constraint);
    const auto constraints = equality.getConstraints();
    const auto& indices = equality.getParameterIndices();
    const auto at = [&](std::size_t i) {
        return std::dynamic_pointer_cast<VrexConstraint3D>(constraints[i]);
    };
    return constraints.size() == 2 && VrexEqualParameter3D::canCreate(at(0), indices[0], at(1), indices[1]);
}

/// Kinds for which the validator has no rule.
struct Row {
    VrexConstraint3DType type;
    bool (*isAdmitted)(VrexConstraint3D& constraint);
};

/// A fixed variable and an interval are what they bind, which is there once they are read.
bool hasVariable(VrexConstraint3D& constraint) { return !constraint.getGeometries().empty(); }

constexpr Row ROWS[] = {
    {IncidenceToCenter3D, canCenter},
    {VariableFixation3D, hasVariable},
    {EqualParameter3D, canShareParameter},
    {MateDimensionInterval3D, hasVariable},
    {EqualDimension3D,
     [](VrexConstraint3D& constraint) {
         const auto& equality = dynamic_cast<const VrexEqualDimension3D&>(constraint);
         return equality.getElement() != nullptr && VrexEqualDimension3D::canCreate(equality.getDimensions());
     }},
    {MateRelation3D,
     [](VrexConstraint3D& constraint) {
         const auto& relation = dynamic_cast<const VrexMateRelation3D&>(constraint);
         return VrexMateRelation3D::canCreate(relation.getMates(), relation.getMateParameterIndexs());
     }},
};

const Row* findRow(VrexConstraint3DType type) {
    for (const Row& row : ROWS) {
        if (row.type == type) {
            return &row;
        }
    }
    return nullptr;
}

} // namespace

VrexConstraintCheck::VrexConstraintCheck() : m_recorder(NO_SOLVER), m_validator(m_tolerances, m_recorder) {}

bool VrexConstraintCheck::isAdmitted(const VrexConstraint3D& constraint) const {
    if (const auto* const fixation = dynamic_cast<const VrexFixation3D*>(&constraint)) {
        return m_validator.preCheckFixation3DType(fixation->getGeometries3D(), fixation->getFixationType());
    }
    return m_validator.preCheckConstraint3DType(constraint.getGeometries3D(), constraint.type(),
                                                constraint.getGeomComponentType(1),
                                                constraint.getGeomComponentType(2));
}

std::optional<VrexConstraintCheck::Refusal> VrexConstraintCheck::operator()(VrexConstraint3D& constraint) {
    if (const Row* const row = findRow(constraint.type())) {
        return row->isAdmitted(constraint)
                   ? std::nullopt
                   : std::optional<Refusal>({VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                                             "The constraint cannot be made of what it binds."});
    }
    // What was refused before would hide what is refused now.
    m_recorder = VrexLogRecorder(NO_SOLVER);
    try {
        if (isAdmitted(constraint)) {
            return std::nullopt;
        }
    } catch (const std::out_of_range&) {
        return Refusal{VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                       "The constraint binds a component that nothing has."};
    }
    return Refusal{m_recorder.getErrorCode(), plainTextOf(m_recorder)};
}
