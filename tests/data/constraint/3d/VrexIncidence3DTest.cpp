#include "data/constraint/3d/VrexIncidence3D.h"

#include <set>
#include <string>

#include <gtest/gtest.h>

#include "support/SamplesRelations.h"
#include "support/TypeChecks.h"

namespace {

using nsTypeChecks::FreedomByType;
using nsTypeChecks::typesOf;
using Component = VrexGeometryComponentType;
using Kind = VrexIncidence3DType;

constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;
constexpr int LOWEST_KIND = -1;
constexpr int HIGHEST_KIND = 1;
constexpr int COMPONENTS = 9;

/// The rule a second time, step by step, over the numbers of types and components.
class Model {
public:
    bool admits(int g1, int g2, int c1, int c2, int kind) const {
        constexpr int circle = 7;
        constexpr int torus = 11;
        if (kind == 0) {
            const bool pair = (g1 == circle && g2 == torus) || (g1 == torus && g2 == circle);
            return pair && c1 == 0 && c2 == 0;
        }
        if (g1 == g2) {
            return true;
        }
        if (isPoint(c1)) {
            return m_all.contains(g2);
        }
        if (isPoint(c2)) {
            return m_all.contains(g1);
        }
        const bool extended = (c1 >= 2 && c1 <= 4) || (c2 >= 2 && c2 <= 4);
        return extended || whole(g1, g2);
    }

private:
    struct Step {
        const char* kind;
        const char* partnersOfFirst;
        const char* partnersOfSecond;
    };
    static constexpr const char* ALL = "pt ln pl ns cy s ci sp co el to spin eval_surf_3d evac_3d sweep";
    static constexpr Step STEPS[] = {
        {"pt", ALL, ALL},
        {"ln", "ln pl cy co sweep", "pl cy co sweep"},
        {"el", "pl co el", "pl co"},
        {"ci", "pl cy s ci co to spin", "pl cy s co spin to"},
        {"to", "pl cy s co to spin", "cy co s pl to spin"},
    };

    static bool isPoint(int component) { return component == 1 || component == 5; }
    static bool whole(int g1, int g2) {
        for (const Step& step : STEPS) {
            const int kind = *typesOf(step.kind).begin();
            if (g1 == kind) {
                return typesOf(step.partnersOfFirst).contains(g2);
            }
            if (g2 == kind) {
                return typesOf(step.partnersOfSecond).contains(g1);
            }
        }
        return false;
    }

    std::set<int> m_all = typesOf(ALL);
};

/// How many combinations of components and kinds of incidence are decided otherwise than by the model.
int differences(const Model& model, int first, int second) {
    int found = 0;
    for (int c1 = 0; c1 < COMPONENTS; ++c1) {
        for (int c2 = 0; c2 < COMPONENTS; ++c2) {
            for (int kind = LOWEST_KIND; kind <= HIGHEST_KIND; ++kind) {
                const bool admitted =
                    VrexIncidence3D::canCreate(VrexGeometry3DType{first}, VrexGeometry3DType{second},
                                               Component{c1}, Component{c2}, Kind{kind});
                found += admitted == model.admits(first, second, c1, c2, kind) ? 0 : 1;
            }
        }
    }
    return found;
}

TEST(VrexIncidence3D, CanCreateOverAllTypesComponentsAndKinds) {
    const Model model;
    nsTypeChecks::forAllPairs(
        [&model](int first, int second) { EXPECT_EQ(differences(model, first, second), 0); });
}

bool admits(VrexGeometry3DType first, VrexGeometry3DType second, Component component1 = WHOLE,
            Component component2 = WHOLE, Kind kind = Kind::Default) {
    return VrexIncidence3D::canCreate(first, second, component1, component2, kind);
}

TEST(VrexIncidence3D, AroundSpineIsForWholeCircleAndTorusOnly) {
    using enum VrexGeometry3DType;
    EXPECT_TRUE(admits(CIRCLE, TORUS, WHOLE, WHOLE, Kind::AroundSpine));
    EXPECT_TRUE(admits(TORUS, CIRCLE, WHOLE, WHOLE, Kind::AroundSpine));
    EXPECT_FALSE(admits(TORUS, TORUS, WHOLE, WHOLE, Kind::AroundSpine));
    EXPECT_FALSE(admits(CIRCLE, CIRCLE, WHOLE, WHOLE, Kind::AroundSpine));
    EXPECT_FALSE(admits(CIRCLE, TORUS, WHOLE, Component::SPINE, Kind::AroundSpine));
    EXPECT_FALSE(admits(CIRCLE, TORUS, Component::CENTER, WHOLE, Kind::AroundSpine));
    EXPECT_FALSE(admits(POINT, TORUS, WHOLE, WHOLE, Kind::AroundSpine));
}

TEST(VrexIncidence3D, ToSpineIsDecidedAsDefault) {
    using enum VrexGeometry3DType;
    EXPECT_TRUE(admits(CIRCLE, PLANE, WHOLE, WHOLE, Kind::ToSpine));
    EXPECT_FALSE(admits(LINE, CIRCLE, WHOLE, WHOLE, Kind::ToSpine));
}

TEST(VrexIncidence3D, OneTypeIsAlwaysAdmitted) {
    for (int type = nsTypeChecks::LOWEST; type <= nsTypeChecks::HIGHEST; ++type) {
        const VrexGeometry3DType same{type};
        EXPECT_TRUE(admits(same, same)) << type;
        EXPECT_TRUE(admits(same, same, Component::APEX, Component::EXTERIOR)) << type;
    }
}

TEST(VrexIncidence3D, CentreAndApexLieOnWhateverHasPoints) {
    using enum VrexGeometry3DType;
    EXPECT_TRUE(admits(SPHERE, SPLINE, Component::CENTER));
    EXPECT_TRUE(admits(NURBS_SURFACE, CONE, WHOLE, Component::APEX));
    EXPECT_FALSE(admits(SPHERE, RIGID_SET, Component::CENTER));
    EXPECT_FALSE(admits(CONNECTOR, SPHERE, WHOLE, Component::CENTER));
    EXPECT_FALSE(admits(POINT, PATTERN, Component::CENTER)) << "decided before the point is looked at";
    EXPECT_FALSE(admits(SPHERE, RIGID_SET, Component::CENTER, Component::PLANE))
        << "before the extended ones";
}

TEST(VrexIncidence3D, AxisPlaneAndSpineMeetEverything) {
    using enum VrexGeometry3DType;
    for (const Component component : {Component::AXIS, Component::PLANE, Component::SPINE}) {
        EXPECT_TRUE(admits(CYLINDER, RIGID_SET, component));
        EXPECT_TRUE(admits(EQUAL_DIMENSION_ELEMENT, TORUS, WHOLE, component));
    }
    EXPECT_FALSE(admits(CYLINDER, RIGID_SET, Component::MAJOR, Component::EXTERIOR));
}

TEST(VrexIncidence3D, WholeEntitiesMeetTheirPartners) {
    using enum VrexGeometry3DType;
    EXPECT_TRUE(admits(EVAL_CURVE, POINT));
    EXPECT_FALSE(admits(POINT, CONNECTOR));
    EXPECT_TRUE(admits(SWEEP_SURFACE, LINE));
    EXPECT_FALSE(admits(ELLIPSE, LINE));
    EXPECT_FALSE(admits(ELLIPSE, CYLINDER));
    EXPECT_FALSE(admits(ELLIPSE, CIRCLE));
    EXPECT_TRUE(admits(SPIN_SURFACE, CIRCLE));
    EXPECT_TRUE(admits(CIRCLE, TORUS));
    EXPECT_TRUE(admits(SPHERE, TORUS));
    EXPECT_FALSE(admits(PLANE, CYLINDER));
    EXPECT_FALSE(admits(SPLINE, EVAL_CURVE));
}

TEST(VrexIncidence3D, DegreeIsTheFirstFreedomForOneTypeElseOne) {
    nsTypeChecks::forAllPairs([](int first, int second) {
        const auto incidence = VrexIncidence3D::create(
            FreedomByType::create(first), FreedomByType::create(second), Kind::Default, WHOLE, WHOLE);
        EXPECT_EQ(incidence->doc(), first == second ? 100 + first : 1);
    });
}

TEST(VrexIncidence3D, DegreesOfPointsAndCircles) {
    const auto point = makeSample<VrexPoint3D>();
    const auto circle = makeSample<VrexCircle3D>();
    EXPECT_EQ(VrexIncidence3D::create(point, point, Kind::Default, WHOLE, WHOLE)->doc(), 3);
    EXPECT_EQ(VrexIncidence3D::create(circle, circle, Kind::Default, WHOLE, WHOLE)->doc(), 6);
    EXPECT_EQ(VrexIncidence3D::create(point, circle, Kind::Default, WHOLE, Component::CENTER)->doc(), 1);
}

TEST(VrexIncidence3D, MissingGeometryHasNoFreedomAndNoType) {
    const auto point = makeSample<VrexPoint3D>();
    EXPECT_EQ(VrexIncidence3D::create(nullptr, point, Kind::Default, WHOLE, WHOLE)->doc(), 1);
    EXPECT_EQ(VrexIncidence3D::create(point, nullptr, Kind::Default, WHOLE, WHOLE)->doc(), 1);
    EXPECT_EQ(VrexIncidence3D::create(nullptr, nullptr, Kind::Default, WHOLE, WHOLE)->doc(), 0);
}

TEST(VrexIncidence3D, KindAndComponentsAreStoredAndTravel) {
    const auto incidence = VrexIncidence3D::create(makeSample<VrexCircle3D>(), makeSample<VrexTorus3D>(),
                                                   Kind::AroundSpine, WHOLE, WHOLE);
    EXPECT_EQ(incidence->getIncidenceType(), Kind::AroundSpine);
    incidence->setIncidenceType(Kind::Default);
    EXPECT_EQ(incidence->getIncidenceType(), Kind::Default);
    incidence->updateFrom(makeSample<VrexIncidence3D>());
    EXPECT_EQ(incidence->getIncidenceType(), Kind::ToSpine);
    EXPECT_EQ(incidence->getGeomComponentType(1), Component::AXIS);
    EXPECT_EQ(incidence->getGeomComponentType(2), Component::CENTER);
}

} // namespace
