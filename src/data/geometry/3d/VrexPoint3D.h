#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexGeometry3D.h"

/// A point in space: kind `POINT`, name prefix "p", three degrees of freedom.
///
/// Parameters: slots X, Y, Z hold the Cartesian coordinates, lengths in the model's unit.
class VREX_DATA_EXPORT VrexPoint3D final : public VrexGeometry3D {
public:
    static constexpr int X = 0, Y = 1, Z = 2;
    static constexpr int PARAMETERS_AMOUNT = 3;
    /// A point without identifier; never null.
    [[nodiscard]] static std::shared_ptr<VrexPoint3D> create(double x, double y, double z);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// True from a distance of `linear` to the latest snapshot on, so always for 0; false without a snapshot.
    /// `second` has no meaning for a point.
    bool checkChanged(double linear, double second) const override;

    VrexVector3DT<double> getPosition() const { return getVectorParameter(X); }
    void
    setPosition(const VrexVector3DT<double>& position); ///< No setter of an entity touches the dirty flag.
    void assign(double x, double y, double z);
    void setX(double x);
    void setY(double y);
    void setZ(double z);

private:
    friend class VrexObjectAccess;

    VrexPoint3D(double x, double y, double z);
    VrexPoint3D(const VrexPoint3D&) = default;
    VrexPoint3D& operator=(VrexPoint3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
