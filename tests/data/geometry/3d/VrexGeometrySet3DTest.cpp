#include "data/geometry/3d/VrexGeometrySet3D.h"

#include <stdexcept>
#include <type_traits>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/geometry/3d/VrexConnector3D.h"
#include "support/LogCapture.h"
#include "support/RecordingVisitor.h"
#include "support/Samples.h"
#include "support/SmallStack.h"

namespace {

using testing::ElementsAre;

/// A set of any kind.
class ProbeSet : public VrexGeometrySet3D {
public:
    explicit ProbeSet(VrexGeometry3DType type) : VrexGeometrySet3D(type, 7) {}
    std::shared_ptr<VrexBaseObject> makeCopy() override { return std::make_shared<ProbeSet>(*this); }
    const char* getNamePrefix() const override { return "probe"; }
    int dof() const override { return 0; }
    using VrexGeometrySet3D::getParameterSize;

private:
    void restoreFromCopy(const VrexBaseObject&) override {}
};

TEST(VrexGeometrySet3D, SlotsAreOriginThenQuaternion) {
    EXPECT_EQ(VrexGeometrySet3D::X, 0);
    EXPECT_EQ(VrexGeometrySet3D::Y, 1);
    EXPECT_EQ(VrexGeometrySet3D::Z, 2);
    EXPECT_EQ(VrexGeometrySet3D::SCALAR, 3);
    EXPECT_EQ(VrexGeometrySet3D::I, 4);
    EXPECT_EQ(VrexGeometrySet3D::J, 5);
    EXPECT_EQ(VrexGeometrySet3D::K, 6);
}

TEST(VrexGeometrySet3D, KindThatIsNoSetIsLoggedAndThrown) {
    const std::string text =
        "The specified type isn't a geometry set! It must be added to isGeometrySet3D().";
    for (int kind = -1; kind <= 20; ++kind) {
        const LogCapture log;
        const auto type = static_cast<VrexGeometry3DType>(kind);
        if (type == VrexGeometry3DType::RIGID_SET) {
            EXPECT_EQ(ProbeSet(type).type(), type);
            EXPECT_TRUE(log.lines().empty());
            continue;
        }
        try {
            const ProbeSet set(type);
            ADD_FAILURE() << "kind " << kind;
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(error.what(), text);
        }
        ASSERT_EQ(log.lines().size(), 1U);
        EXPECT_EQ(log.lines()[0].channel, 1U);
        EXPECT_EQ(log.lines()[0].level, 1U);
        EXPECT_EQ(log.lines()[0].file, "VrexGeometrySet3D.cpp");
        EXPECT_EQ(log.lines()[0].text, "VrexGeometrySet3D::VrexGeometrySet3D(): " + text);
    }
}

TEST(VrexGeometrySet3D, IsNeverChanged) {
    ProbeSet set(VrexGeometry3DType::RIGID_SET);
    set.backup();
    EXPECT_EQ(set.getParameterSize(), 7U);
    EXPECT_FALSE(set.checkChanged(0.0, 0.0));
}

TEST(VrexGeometrySet3D, AcceptsAsItself) {
    ProbeSet set(VrexGeometry3DType::RIGID_SET);
    RecordingVisitor visitor;
    set.accept(visitor);
    EXPECT_EQ(visitor.visits.front(), "visitGeometrySet3D");
}

TEST(VrexGeometrySet3D, GeometriesAreTheMembersInOrder) {
    const auto point = makeSample<VrexPoint3D>();
    const auto line = makeSample<VrexLine3D>();
    ProbeSet set(VrexGeometry3DType::RIGID_SET);
    set.geometries() = {line, nullptr, point, line};
    EXPECT_THAT(std::as_const(set).geometries(), ElementsAre(line, nullptr, point, line));
    EXPECT_THAT(set.getGeometries(), ElementsAre(line, point, line));
    EXPECT_THAT(set.VrexGeometry3D::geometries(), ElementsAre(line, point, line));
    static_assert(std::is_reference_v<decltype(set.geometries())>);
}

TEST(VrexGeometrySet3D, CopySharesTheMembersAndNotTheList) {
    const auto point = makeSample<VrexPoint3D>();
    ProbeSet set(VrexGeometry3DType::RIGID_SET);
    set.geometries() = {point};
    const auto copy = std::static_pointer_cast<ProbeSet>(set.makeCopy());
    copy->geometries().push_back(point);
    EXPECT_THAT(set.geometries(), ElementsAre(point));
    EXPECT_THAT(copy->geometries(), ElementsAre(point, point));
}

TEST(VrexGeometrySet3D, DeepNestIsReleasedOnASmallStack) {
    const auto point = makeSample<VrexPoint3D>();
    runOnSmallStack([&point] {
        auto outer = VrexRigidSet3D::create({point});
        for (int depth = 0; depth < 1'000'000; ++depth) {
            outer = VrexRigidSet3D::create({std::move(outer)});
        }
        EXPECT_EQ(point.use_count(), 2);
        outer.reset();
    });
    EXPECT_EQ(point.use_count(), 1);
}

TEST(VrexGeometrySet3D, DeepNestOfConnectorsIsReleasedOnASmallStack) {
    const auto point = makeSample<VrexPoint3D>();
    runOnSmallStack([&point] {
        auto outer = VrexRigidSet3D::create({point});
        for (int depth = 0; depth < 500'000; ++depth) {
            outer = VrexRigidSet3D::create({VrexConnector3D::create(std::move(outer))});
        }
        auto connector = VrexConnector3D::create(std::move(outer));
        EXPECT_EQ(point.use_count(), 2);
        connector->setRigidSet(nullptr);
        EXPECT_EQ(point.use_count(), 1);
    });
}

} // namespace
