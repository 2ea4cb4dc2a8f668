#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "data/base/VrexLogRecorder.h"
#include "data/constraint/3d/VrexConstraintManager3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "support/Numbered.h"
#include "support/ProbeConstraint3D.h"

/// What the tests of help values share.
namespace nsHelpFixture {

/// A constraint with the support for help values that a test asks for.
class HelpConstraint : public ProbeConstraint3D {
public:
    bool isHelpPointSupported() const override { return points; }
    bool isHelpParameterSupported() const override { return parameters; }
    bool points = true;
    bool parameters = true;
};

/// The manager with what its subclasses may do.
class OpenManager : public VrexConstraintManager3D {
public:
    using VrexConstraintManager3D::adjustHelpParameterRange;
    using VrexConstraintManager3D::getRelatedGeometryMap;
    using VrexConstraintManager3D::VrexConstraintManager3D;
};

using Values = std::vector<double>;
inline Values values(const VrexVector3DT<double>& vector) { return {vector.x(), vector.y(), vector.z()}; }
inline Values values(const VrexVector2DT<double>& vector) { return {vector.x(), vector.y()}; }
/// Nothing for an empty one.
template <class Vector>
Values values(const std::optional<Vector>& vector) {
    return vector ? values(*vector) : Values{};
}

/// Two splines, 1 and 2, under constraint 100; spline 3 stands apart.
class Fixture : public testing::Test {
protected:
    Fixture() { manager.addConstraint(constraint); }

    static std::shared_ptr<VrexSpline3D> spline(std::uint64_t id) {
        auto made = numbered(VrexSpline3D::create({1, false, {2.0, 2.0, 5.0, 5.0}, {}}), id);
        made->controlPoints() = {{VrexPoint3D::create(0.0, 0.0, 0.0), 1.0},
                                 {VrexPoint3D::create(1.0, 0.0, 0.0), 1.0}};
        return made;
    }
    std::shared_ptr<HelpConstraint> helpConstraint(std::uint64_t id,
                                                   const std::shared_ptr<VrexGeometry3D>& geometry1,
                                                   const std::shared_ptr<VrexGeometry3D>& geometry2) {
        auto made = numbered(std::make_shared<HelpConstraint>(), id);
        made->addArguments(geometry1, geometry2);
        made->setDirty(false);
        return made;
    }
    void expectUntouched() const {
        EXPECT_FALSE(constraint->isDirty());
        EXPECT_FALSE(constraint->helpPoint1());
        EXPECT_FALSE(constraint->helpPoint2());
        EXPECT_FALSE(constraint->helpParam1());
        EXPECT_FALSE(constraint->helpParam2());
        EXPECT_FALSE(constraint->fixHelpParameter1());
        EXPECT_FALSE(constraint->fixHelpParameter2());
    }

    VrexLogRecorder recorder{3};
    OpenManager manager{recorder};
    std::shared_ptr<VrexSpline3D> first = spline(1);
    std::shared_ptr<VrexSpline3D> second = spline(2);
    std::shared_ptr<VrexSpline3D> stranger = spline(3);
    std::shared_ptr<HelpConstraint> constraint = helpConstraint(100, first, second);
    const VrexVector3DT<double> P{1.0, 2.0, 3.0};
    const VrexVector2DT<double> U{3.0, 4.0};
    VrexVector3DT<double> point{-1.0, -1.0, -1.0};
    VrexVector2DT<double> parameter{-1.0, -1.0};
    bool fixed = false;
};

} // namespace nsHelpFixture
