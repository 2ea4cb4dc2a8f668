#pragma once

#include <memory>
#include <vector>

#include "data/VrexVariableDescriptor.h"
#include "data/VrexVisitor3D.h"

/// Hidden: what has to be cloned before an object, in the order in which its clone asks for it.
///
/// That is what an entity is built on, what descriptors name, the variables that a constraint binds, and the
/// constraints that a constraint ties together. The entities that a constraint binds are not among them, nor
/// the mates of a relation: these have to be cloned by then. No element is null.
class VrexCloneReferences : public VrexVisitor3D {
public:
    using Objects = std::vector<std::shared_ptr<VrexBaseObject>>;

    /// Of the object last visited.
    Objects& objects() { return m_objects; }
    /// Whether they are named by descriptors, so that the clone can do without them at first.
    bool areDescribed() const { return m_areDescribed; }
    void clear();

    void visitGeometry3D(VrexGeometry3D& geometry) override;
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) override;
    void visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) override;
    void visitBaseEquation(VrexBaseEquation& equation) override;
    void visitConstraint3D(VrexConstraint3D& constraint) override;
    void visitEqualDimension3D(VrexEqualDimension3D& constraint) override;
    void visitEqualParameter3D(VrexEqualParameter3D& constraint) override;

private:
    void addDescribed(const std::vector<VrexVariableDescriptor>& descriptors);
    void addTied(VrexBaseConstraint& constraint);

    Objects m_objects;
    bool m_areDescribed = false;
};
