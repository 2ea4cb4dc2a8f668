#include "solver/residuals/VrexDragWishes.h"

#include <cstddef>

#include "data/3d/VrexTransform3D.h"
#include "data/VrexTransformation3DT.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "solver/model/VrexSolverBuilder.h"

namespace {

using Vector = VrexSolverShape::Vector;

Vector constant(const VrexVector3DT<double>& v) { return {v.x(), v.y(), v.z()}; }

void set(VrexVariable* rows, const Vector& v) {
    rows[0] = v.x();
    rows[1] = v.y();
    rows[2] = v.z();
}

/// The whole frame: for a line or a plane what it cannot do simply stays undone.
void addPose(VrexSolverBuilder& builder, const VrexSolverShape& shape, const VrexTransformMatrix3D& matrix) {
    const VrexSolverFrame start = shape.frame();
    const VrexTransformation3DT<double> motion(matrix);
    const auto turned = [&motion](const VrexVector3DT<double>& v) {
        return VrexQuaternionT<double>::rotate(v, motion.getRotation(), false);
    };
    const auto origin = turned(start.origin) + motion.getTranslation();
    const auto axisX = turned(start.axes[0]);
    const auto axisZ = turned(start.axes[2]);
    builder.addWish(9, [&shape, origin, axisX, axisZ, length = builder.length()](VrexVariable* rows) {
        set(rows, (shape.origin() - constant(origin)) / length);
        set(rows + 3, shape.axisX() - constant(axisX));
        set(rows + 6, shape.axisZ() - constant(axisZ));
    });
}

void addSize(VrexSolverBuilder& builder, const VrexSolverShape& shape, std::size_t index, double value,
             double unit) {
    builder.addWish(1, [&shape, index, value, unit](VrexVariable* rows) {
        rows[0] = (shape.size(index) - value) / unit;
    });
}

void addPoses(VrexSolverBuilder& builder, const VrexTransform3D& drag) {
    for (const VrexDragTransform3D& transform : drag.transformations()) {
        if (const VrexSolverShape* const shape = builder.shape(transform.geometry)) {
            addPose(builder, *shape, transform.matrix);
        }
    }
}

void addParameters(VrexSolverBuilder& builder, const VrexTransform3D& drag) {
    for (const VrexDragParameter3D& parameter : drag.transformParameters()) {
        if (const VrexSolverShape* const shape = builder.shape(parameter.geometry)) {
            const bool isMinor = parameter.type == VrexDragParameter3DType::MinorRadius3D;
            const bool isAngle = parameter.type == VrexDragParameter3DType::Aperture3D;
            addSize(builder, *shape, isMinor ? 1 : 0, parameter.value, isAngle ? 1.0 : builder.length());
        }
    }
}

void addVariables(VrexSolverBuilder& builder, const VrexTransform3D& drag) {
    for (const VrexDragVariable& variable : drag.variableTransformations()) {
        if (const VrexSolverShape* const shape = builder.shape(variable.variable)) {
            addSize(builder, *shape, 0, variable.value, 1.0);
        }
    }
}

} // namespace

void nsDragWishes::add(VrexSolverBuilder& builder, const VrexTransform3D& drag) {
    addPoses(builder, drag);
    addParameters(builder, drag);
    addVariables(builder, drag);
}
