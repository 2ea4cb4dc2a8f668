#include "solver/VrexDimensionResiduals.h"

#include <cmath>
#include <stdexcept>

#include "data/constraint/3d/VrexDimension3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "solver/VrexSolverNames.h"

namespace {

void refuseUnlessFinite(const VrexDimension3D& dimension) {
    if (!std::isfinite(dimension.value())) {
        throw std::invalid_argument(
            nsSolverNames::nameOf(dimension).append(" has a value that is not finite."));
    }
}

void holdVariable(VrexSolverBuilder& builder, VrexDimension3D& dimension, double unit) {
    const VrexSolverModel& model = builder.model();
    builder.addTarget([&model, &dimension] { return model.value(dimension); },
                      [start = dimension.value()] { return VrexVariable(start); }, unit);
}

} // namespace

void nsDimensionResiduals::add(VrexSolverBuilder& builder, VrexDimension3D& dimension,
                               const VrexSolverBuilder::Measure& measure, double unit) {
    refuseUnlessFinite(dimension);
    const VrexSolverModel& model = builder.model();
    builder.addTarget(
        measure, [&model, &dimension] { return model.value(dimension); }, unit);
    builder.addLimits(dimension.getLimits(), measure, unit);
    if (dimension.isRigid() && dimension.getVariable() != nullptr) {
        holdVariable(builder, dimension, unit);
    }
    if (const VrexSolverShape* const common = model.commonValue(dimension)) {
        builder.addResult([&dimension, common] { dimension.setValue(common->sizeValue(0)); });
    }
}
