#include "data/VrexCloneReferences.h"

#include "data/constraint/3d/VrexEqualDimension3D.h"
#include "data/constraint/3d/VrexEqualParameter3D.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"

void VrexCloneReferences::clear() {
    m_objects.clear();
    m_areDescribed = false;
}

void VrexCloneReferences::visitGeometry3D(VrexGeometry3D& geometry) {
    const auto parts = geometry.getGeometries();
    m_objects.assign(parts.begin(), parts.end());
}

void VrexCloneReferences::visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) {
    addDescribed(curve.descriptors());
}

void VrexCloneReferences::visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) {
    addDescribed(surface.descriptors());
}

void VrexCloneReferences::visitBaseEquation(VrexBaseEquation& equation) {
    addDescribed(equation.descriptors());
}

void VrexCloneReferences::visitConstraint3D(VrexConstraint3D& constraint) {
    for (const auto& geometry : constraint.getGeometries()) {
        if (geometry != nullptr && geometry->baseType() == VrexObjectType::Variable) {
            m_objects.push_back(geometry);
        }
    }
}

void VrexCloneReferences::visitEqualDimension3D(VrexEqualDimension3D& constraint) { addTied(constraint); }

void VrexCloneReferences::visitEqualParameter3D(VrexEqualParameter3D& constraint) { addTied(constraint); }

void VrexCloneReferences::addDescribed(const std::vector<VrexVariableDescriptor>& descriptors) {
    m_areDescribed = true;
    for (const VrexVariableDescriptor& descriptor : descriptors) {
        if (descriptor.isValid()) {
            m_objects.push_back(descriptor.object());
        }
    }
}

void VrexCloneReferences::addTied(VrexBaseConstraint& constraint) {
    const auto constraints = constraint.getConstraints();
    m_objects.assign(constraints.begin(), constraints.end());
}
