#include "solver/residuals/VrexRelationResiduals.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "data/constraint/3d/VrexDimension3D.h"
#include "data/constraint/3d/VrexEqualDimension3D.h"
#include "data/constraint/3d/VrexMate3D.h"
#include "data/constraint/3d/VrexMateDimensionInterval3D.h"
#include "data/constraint/3d/VrexMateRelation3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "solver/model/VrexSolverBuilder.h"
#include "solver/model/VrexSolverNames.h"
#include "solver/residuals/VrexDimensionResiduals.h"
#include "solver/residuals/VrexMateResiduals.h"

namespace {

bool isTogether(const VrexSolverModel& model, const std::shared_ptr<VrexDimension3D>& dimension) {
    return dimension != nullptr && (dimension->isRigid() || !model.isNumber(*dimension));
}

void addShare(VrexSolverBuilder& builder, const std::shared_ptr<VrexDimension3D>& dimension,
              const VrexSolverShape& element) {
    builder.addTarget(
        nsDimensionResiduals::valueOf(builder, *dimension), [&element] { return element.size(0); },
        element.body().sizeUnit(0));
    if (const VrexSolverShape* const common = builder.model().commonValue(*dimension)) {
        builder.addResult([dimension, common] { dimension->setValue(common->sizeValue(0)); });
    }
}

} // namespace

void nsRelationResiduals::add(VrexSolverBuilder& builder, VrexEqualDimension3D& equality) {
    const VrexSolverModel& model = builder.model();
    const VrexSolverShape* const element = builder.shape(equality.getElement());
    const auto& dimensions = equality.getDimensions();
    const bool areTogether = std::all_of(dimensions.begin(), dimensions.end(),
                                         [&](const auto& dimension) { return isTogether(model, dimension); });
    if (element == nullptr || !areTogether) {
        builder.refuse("The element or a dimension of this equality is missing.");
        return;
    }
    for (const auto& dimension : dimensions) {
        addShare(builder, dimension, *element);
    }
}

void nsRelationResiduals::add(VrexSolverBuilder& builder, VrexMateRelation3D& relation) {
    if (!VrexMateRelation3D::canCreate(relation.getMates(), relation.getMateParameterIndexs())) {
        builder.refuse("A relation needs a dimension of each of two mates.");
        return;
    }
    if (!std::isfinite(relation.getRatio())) {
        throw std::invalid_argument(
            nsSolverNames::nameOf(relation).append(" has a ratio that is not finite."));
    }
    const auto dimensionAt = [&](std::size_t place) {
        return nsMateResiduals::dimension(builder, *relation.getMates()[place],
                                          relation.getMateParameterIndexs()[place], nullptr);
    };
    const auto first = dimensionAt(0);
    const auto second = dimensionAt(1);
    if (!first.has_value() || !second.has_value()) {
        builder.refuse("A mate of this relation has no connectors here.");
        return;
    }
    builder.addTarget(
        first->measure,
        [measure = second->measure, ratio = relation.getRatio()] { return measure() * ratio; }, first->unit);
}

void nsRelationResiduals::add(VrexSolverBuilder& builder, VrexMateDimensionInterval3D& interval) {
    const VrexSolverShape* const variable = builder.shape(interval.variable());
    if (variable == nullptr) {
        builder.refuse("The variable of this interval is missing.");
        return;
    }
    const VrexSolverBuilder::Measure value = [variable] { return variable->size(0); };
    double unit = variable->body().sizeUnit(0);
    if (const auto parent = interval.getParent()) {
        const auto mate = std::dynamic_pointer_cast<VrexMate3D>(parent);
        const auto dimension =
            mate != nullptr ? nsMateResiduals::dimension(builder, *mate, interval.dimensionIndex(), variable)
                            : std::nullopt;
        if (!dimension.has_value()) {
            builder.refuse("The parent of this interval has no such dimension.");
            return;
        }
        unit = dimension->unit;
        if (!dimension->isCounter) {
            builder.addTarget(dimension->measure, value, unit);
        }
    }
    builder.addLimits(interval.limit(), value, unit);
}
