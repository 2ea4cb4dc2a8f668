#include "data/geometry/3d/VrexGeometry3D.h"

#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "support/RecordingVisitor.h"
#include "support/Samples.h"

namespace {

using testing::ElementsAre;

/// An entity built on others, as sets and surfaces are.
class Compound : public VrexGeometry3D {
public:
    explicit Compound(std::vector<std::shared_ptr<VrexBaseGeometry>> parts)
        : VrexGeometry3D(VrexGeometry3DType::RIGID_SET, 0), m_parts(std::move(parts)) {}
    std::shared_ptr<VrexBaseObject> makeCopy() override { return std::make_shared<Compound>(m_parts); }
    const char* getNamePrefix() const override { return "rs"; }
    int dof() const override { return 6; }
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const override { return m_parts; }
    using VrexGeometry3D::m_defaultTolerance;

private:
    void restoreFromCopy(const VrexBaseObject&) override {}
    std::vector<std::shared_ptr<VrexBaseGeometry>> m_parts;
};

TEST(VrexGeometry3D, DefaultsOfTheHierarchy) {
    const auto point = makeSample<VrexPoint3D>();
    EXPECT_EQ(point->baseType(), VrexObjectType::Geometry);
    EXPECT_TRUE(point->getGeometries().empty());
    EXPECT_TRUE(point->geometries().empty());
    EXPECT_TRUE(point->getVariables().empty());
    EXPECT_FALSE(point->isPattern());
    EXPECT_FALSE(point->isParametricCurve());
    EXPECT_FALSE(point->isParametricSurface());
    EXPECT_FALSE(point->biasData().has_value());
    EXPECT_EQ(point->status(), VrexGeometryStatus::Unknown);
    EXPECT_EQ(point->getChangeStatus(), VrexGeometryChangeStatus::NotChanged);
    EXPECT_EQ(Compound::m_defaultTolerance, 1e-06);
}

TEST(VrexGeometry3D, BaseChangeTestFindsNothing) {
    const Compound compound({});
    EXPECT_FALSE(compound.checkChanged(0.0, 0.0));
}

TEST(VrexGeometry3D, GeometriesLeaveOutVariablesAndNulls) {
    const auto point = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    const Compound compound({point, makeSample<VrexGeometryVariable>(), nullptr, line});
    EXPECT_THAT(compound.geometries(), ElementsAre(point, line));
    EXPECT_THAT(compound.VrexGeometry::geometries(), ElementsAre(point, line));
}

TEST(VrexGeometry3D, BiasDataTravelsWithCopyRestoreAndUpdate) {
    static_assert(sizeof(VrexGeometryBiasData3D::Record) == 16);
    const VrexGeometryBiasData3D bias{{{1, 0.5}}, {{2, 1.5}, {3, 2.5}}};
    const auto point = makeSample<VrexPoint3D>();
    point->biasData() = bias;
    EXPECT_EQ(std::static_pointer_cast<VrexPoint3D>(point->makeCopy())->biasData(), bias);

    point->backup();
    point->biasData().reset();
    point->restore();
    EXPECT_EQ(point->biasData(), bias);

    const auto other = makeSample<VrexPoint3D>();
    other->updateFrom(point);
    EXPECT_EQ(other->biasData(), bias);
    point->updateFrom(makeSample<VrexPoint3D>());
    EXPECT_FALSE(point->biasData().has_value());
}

TEST(VrexGeometry3D, ParameterCountsAreThoseOfTheClass) {
    // A generated name tells of more than one parameter; the last slot is there, the next is not.
    const auto expectCount = [](const std::shared_ptr<VrexBaseObject>& object, int count) {
        VrexVariableDescriptor last(object, static_cast<std::uint32_t>(count - 1), nullptr);
        last.setValue(0.125);
        EXPECT_EQ(last.getValue(), 0.125);
        VrexVariableDescriptor behind(object, static_cast<std::uint32_t>(count), nullptr);
        behind.setValue(0.125);
        EXPECT_EQ(behind.getValue(), 0.0);
    };
    expectCount(makeSample<VrexPoint3D>(), VrexPoint3D::PARAMETERS_AMOUNT);
    expectCount(makeSample<VrexLine3D>(), VrexLine3D::PARAMETERS_AMOUNT);
    expectCount(makeSample<VrexPlane3D>(), VrexPlane3D::PARAMETERS_AMOUNT);
    expectCount(makeSample<VrexSphere3D>(), VrexSphere3D::PARAMETERS_AMOUNT);
    expectCount(makeSample<VrexCircle3D>(), VrexCircle3D::PARAMETERS_AMOUNT);
    expectCount(makeSample<VrexEllipse3D>(), VrexEllipse3D::PARAMETERS_AMOUNT);
    expectCount(makeSample<VrexCylinder3D>(), VrexCylinder3D::PARAMETERS_AMOUNT);
    expectCount(makeSample<VrexCone3D>(), VrexCone3D::PARAMETERS_AMOUNT);
    expectCount(makeSample<VrexTorus3D>(), VrexTorus3D::PARAMETERS_AMOUNT);
    expectCount(makeSample<VrexGeometryVariable>(), VrexGeometryVariable::PARAMETERS_AMOUNT);
}

TEST(VrexGeometry3D, EachLevelAcceptsAsItself) {
    Compound compound({});
    RecordingVisitor visitor;
    compound.accept(visitor);
    compound.VrexGeometry::accept(visitor);
    compound.VrexBaseGeometry::accept(visitor);
    EXPECT_THAT(visitor.visits, ElementsAre("visitGeometry3D", "visitGeometry", "visitBaseGeometry",
                                            "visitBaseObject", "visitGeometry", "visitBaseGeometry",
                                            "visitBaseObject", "visitBaseGeometry", "visitBaseObject"));
}

TEST(VrexGeometry3D, SettersLeaveTheDirtyFlagAlone) {
    const auto line = makeSample<VrexLine3D>();
    line->setDirty(false);
    line->setOrigin({1.0, 1.0, 1.0});
    line->setDirection({1.0, 1.0, 1.0});
    EXPECT_FALSE(line->isDirty());
    const auto plane = makeSample<VrexPlane3D>();
    plane->setDirty(false);
    plane->setOrigin({1.0, 1.0, 1.0});
    plane->setNormal({1.0, 1.0, 1.0});
    EXPECT_FALSE(plane->isDirty());
    const auto sphere = makeSample<VrexSphere3D>();
    sphere->setDirty(false);
    sphere->setCenter({1.0, 1.0, 1.0});
    sphere->setRadius(1.0);
    sphere->setAllowRadiusSignChange(false);
    EXPECT_FALSE(sphere->isDirty());
}

} // namespace
