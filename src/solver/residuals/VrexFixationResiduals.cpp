#include "solver/residuals/VrexFixationResiduals.h"

#include "data/constraint/3d/VrexFixation3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "solver/model/VrexSolverBuilder.h"

namespace {

using Vector = VrexSolverShape::Vector;

Vector constant(const VrexVector3DT<double>& v) { return {v.x(), v.y(), v.z()}; }

/// The two axes across `axis` may not turn it.
void holdDirection(VrexSolverBuilder& builder, const VrexSolverShape& shape, bool isOfX) {
    const VrexVector3DT<double> start = shape.frame().axes[isOfX ? 0 : 2];
    builder.add(2, [&shape, start, isOfX](VrexVariable* rows) {
        const Vector held = constant(start);
        rows[0] = shape.axisY().dotProduct(held);
        rows[1] = (isOfX ? shape.axisZ() : shape.axisX()).dotProduct(held);
    });
}

/// In the directions in which the entity has a place: a line has none along itself.
void holdLocation(VrexSolverBuilder& builder, const VrexSolverShape& shape, VrexGeometry3DType type) {
    const VrexVector3DT<double> start = shape.frame().origin;
    const double length = builder.length();
    if (type == VrexGeometry3DType::PLANE) {
        builder.add(1, [&shape, start, length](VrexVariable* rows) {
            rows[0] = shape.axisZ().dotProduct(shape.origin() - constant(start)) / length;
        });
    } else if (type == VrexGeometry3DType::LINE || type == VrexGeometry3DType::CYLINDER) {
        builder.add(2, [&shape, start, length](VrexVariable* rows) {
            const Vector shift = shape.origin() - constant(start);
            rows[0] = shape.axisX().dotProduct(shift) / length;
            rows[1] = shape.axisY().dotProduct(shift) / length;
        });
    } else {
        builder.add(3, [&shape, start, length](VrexVariable* rows) {
            const Vector shift = (shape.origin() - constant(start)) / length;
            rows[0] = shift.x();
            rows[1] = shift.y();
            rows[2] = shift.z();
        });
    }
}

void holdSize(VrexSolverBuilder& builder, const VrexSolverShape& shape, std::size_t index, double unit) {
    const double start = shape.sizeValue(index);
    builder.add(1, [&shape, index, start, unit](VrexVariable* rows) {
        rows[0] = (shape.size(index) - start) / unit;
    });
}

} // namespace

void nsFixationResiduals::add(VrexSolverBuilder& builder, VrexFixation3D& fixation) {
    if (fixation.getFixationType() == VrexFixation3DType::Complete3D) {
        return; // its body has no unknowns
    }
    const auto geometry = fixation.geometry(1);
    const VrexSolverShape* const shape = builder.shape(geometry);
    if (shape == nullptr) {
        builder.refuse("What this fixation holds has no place of its own.");
        return;
    }
    switch (fixation.getFixationType()) {
    case VrexFixation3DType::Direction3D:
        return holdDirection(builder, *shape, false);
    case VrexFixation3DType::EllipseDirection3D:
        return holdDirection(builder, *shape, true);
    case VrexFixation3DType::Location3D:
        return holdLocation(builder, *shape, geometry->type());
    case VrexFixation3DType::Radius3D:
    case VrexFixation3DType::MajorRadius3D:
        return holdSize(builder, *shape, 0, builder.length());
    case VrexFixation3DType::MinorRadius3D:
        return holdSize(builder, *shape, 1, builder.length());
    case VrexFixation3DType::Aperture3D:
        return holdSize(builder, *shape, 0, 1.0);
    default:
        builder.refuse("This type of fixation is not supported.");
    }
}
