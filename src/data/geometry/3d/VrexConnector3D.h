#pragma once

#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexTransformation3DT.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"

/// A frame on a rigid set, to which mates attach: kind `CONNECTOR`, name prefix "mt", six degrees of freedom.
///
/// The frame is a transformation, the identity at first. A connector owns no parameters: the slots name the
/// order in which the frame's seven numbers stand where they are written one by one. It shares ownership of
/// its set; a set that owns its connector in turn is never released, unless someone unties the two.
class VREX_DATA_EXPORT VrexConnector3D final : public VrexGeometry3D {
public:
    static constexpr int X = 0, Y = 1, Z = 2;
    static constexpr int SCALAR = 3, I = 4, J = 5, K = 6;
    /// Kept: of the frame, while the parameter vector is empty.
    static constexpr int PARAMETERS_AMOUNT = 7;
    /// A connector without identifier; never null. `rigidSet` may be null.
    [[nodiscard]] static std::shared_ptr<VrexConnector3D> create(std::shared_ptr<VrexRigidSet3D> rigidSet);

    ~VrexConnector3D() override;
    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// The rigid set, if there is one.
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const override;
    /// True when the translation or the vector of the rotation left the latest snapshot's by `linear` or more
    /// in a component, or the rotation's scalar did by `second` or more, or the rigid set is changed. False
    /// without a snapshot of the connector.
    bool checkChanged(double linear, double second) const override;

    const std::shared_ptr<VrexRigidSet3D>& getRigidSet() const { return m_rigidSet; }
    void setRigidSet(std::shared_ptr<VrexRigidSet3D> rigidSet);
    VrexTransformation3DT<double>& getTransformation() { return m_transformation; }
    const VrexTransformation3DT<double>& getTransformation() const { return m_transformation; }
    void setTransformation(const VrexTransformation3DT<double>& transformation);
    const VrexVector3DT<double>& getOrigin() const { return m_transformation.getTranslation(); }
    const VrexQuaternionT<double>& getRotation() const { return m_transformation.getRotation(); }

private:
    friend class VrexObjectAccess;

    explicit VrexConnector3D(std::shared_ptr<VrexRigidSet3D> rigidSet);
    VrexConnector3D(const VrexConnector3D&) = default;
    VrexConnector3D& operator=(VrexConnector3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
    /// Keeps the rigid set.
    void doUpdateFrom(const VrexBaseObject& other) override;

    std::shared_ptr<VrexRigidSet3D> m_rigidSet;
    VrexTransformation3DT<double> m_transformation;
};
