#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "data/VrexBaseObject.h"
#include "data/VrexConstraintSatisfiedStatus.h"
#include "data/VrexConstraintStatus.h"
#include "data/VrexExport.h"
#include "data/VrexSolveMethodStatus.h"

class VrexBaseGeometry;

/// The base of what binds geometries: constraints and equations. Name prefix "d".
class VREX_DATA_EXPORT VrexBaseConstraint : public VrexBaseObject {
public:
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    /// Degree of constraint: how many degrees of freedom it takes away.
    virtual int doc() const = 0;
    /// The bound geometries, in order.
    virtual const std::vector<std::shared_ptr<VrexBaseGeometry>>& getGeometries() const = 0;
    /// Whether it holds its geometry completely fixed; false by default.
    virtual bool isCompleteFixed() const;
    /// The constraints that this one is made of; none by default.
    virtual std::vector<std::shared_ptr<VrexBaseConstraint>> getConstraints();

    VrexConstraintStatus& status() { return m_status; }
    const VrexConstraintStatus& status() const { return m_status; }
    VrexConstraintSatisfiedStatus& satisfiedStatus() { return m_satisfiedStatus; }
    const VrexConstraintSatisfiedStatus& satisfiedStatus() const { return m_satisfiedStatus; }
    VrexSolveMethodStatus& solveMethodStatus() { return m_solveMethodStatus; }
    const VrexSolveMethodStatus& solveMethodStatus() const { return m_solveMethodStatus; }

protected:
    explicit VrexBaseConstraint(VrexObjectType type) : VrexBaseObject(type) {}
    VrexBaseConstraint(VrexObjectType type, std::uint32_t parameterCount);
    VrexBaseConstraint(const VrexBaseConstraint&) = default;
    VrexBaseConstraint(VrexBaseConstraint&&) = default;
    VrexBaseConstraint& operator=(const VrexBaseConstraint&) = default;
    VrexBaseConstraint& operator=(VrexBaseConstraint&&) = default;

private:
    VrexConstraintStatus m_status = VrexConstraintStatus::Unknown;
    VrexConstraintSatisfiedStatus m_satisfiedStatus = VrexConstraintSatisfiedStatus::Unknown;
    VrexSolveMethodStatus m_solveMethodStatus = VrexSolveMethodStatus::Unknown;
};
