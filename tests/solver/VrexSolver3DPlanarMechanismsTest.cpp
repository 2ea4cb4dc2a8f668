#include <cmath>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexDirectionDistance3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "solver/FourBar.h"
#include "solver/RandomStarts.h"

namespace {

using Vector = VrexVector3DT<double>;
constexpr double TOLERANCE = 1e-8; ///< Residuals of 1e-10, of mechanisms some units in size.

/// How far the body has turned about Z of space.
double turnOf(const std::shared_ptr<VrexRigidSet3D>& body) {
    const Vector x = body->getDirection();
    return std::atan2(x.y(), x.x());
}

TEST(VrexSolver3DPlanarMechanisms, FourBarHasTheAnglesOfItsClosedForm) {
    const auto make = [] {
        FourBar linkage(0.3);
        linkage.input->getAngle().value = 0.9;
        linkage.input->getAngle().setFixed(true);
        return linkage;
    };
    solveFromRandomStarts(0.05, make, [](const FourBar& linkage, const VrexSolverComponentReport& report) {
        EXPECT_EQ(report.freedom, 0U);
        EXPECT_NEAR(turnOf(linkage.coupler), FourBar::couplerAngle(1.2) - FourBar::couplerAngle(0.3),
                    TOLERANCE);
        EXPECT_NEAR(linkage.output->getAngle().value, FourBar::rockerAngle(1.2) - FourBar::rockerAngle(0.3),
                    TOLERANCE);
    });
}

/// A crank of radius 1 about the origin, a rod of length 3 and a slide along X.
struct SliderCrank : Mechanism {
    static constexpr double CRANK = 1.0, ROD = 3.0;

    explicit SliderCrank(double angle) {
        const Vector a{CRANK * std::cos(angle), CRANK * std::sin(angle), 0.0};
        const Vector b{place(angle), 0.0, 0.0};
        const auto base = ground();
        const auto crank = body();
        const auto rod = body();
        slide = body();
        input = hinge(base, crank, {0.0, 0.0, 0.0});
        hinge(crank, rod, a);
        hinge(rod, slide, b);
        const auto along = towards(Vector::OX());
        slider = bind(VrexSliderMate3D::create(connector(base, b, along), connector(slide, b, along), {}));
    }
    static double place(double angle) {
        return CRANK * std::cos(angle) + std::sqrt(ROD * ROD - std::pow(CRANK * std::sin(angle), 2));
    }

    std::shared_ptr<VrexRigidSet3D> slide;
    std::shared_ptr<VrexRevoluteMate3D> input;
    std::shared_ptr<VrexSliderMate3D> slider;
};

TEST(VrexSolver3DPlanarMechanisms, SlideIsWhereItsCrankPutsIt) {
    const auto make = [] {
        SliderCrank engine(0.5);
        engine.input->getAngle().value = 0.8;
        engine.input->getAngle().setFixed(true);
        return engine;
    };
    solveFromRandomStarts(0.05, make, [](const SliderCrank& engine, const VrexSolverComponentReport& report) {
        const double way = SliderCrank::place(1.3) - SliderCrank::place(0.5);
        EXPECT_EQ(report.freedom, 0U);
        EXPECT_NEAR(engine.slide->getOrigin().x(), way, TOLERANCE);
        EXPECT_NEAR(engine.slide->getOrigin().y(), 0.0, TOLERANCE);
        EXPECT_NEAR(engine.slider->getDistance().value, way, TOLERANCE);
    });
}

TEST(VrexSolver3DPlanarMechanisms, SliderCrankHasOneDegreeOfFreedom) {
    const SliderCrank engine(0.5);
    EXPECT_EQ(solve(engine).freedom, 1U);
}

/// Peaucellier's linkage in a plane that leans: a rhombus A C B P whose corners A and B hang on bars from O;
/// C goes round Q on a circle through O, so P goes on a straight line across OQ. The height of C drives it.
struct StraightLine : Mechanism {
    static constexpr double LONG = 5.0, SHORT = 2.0, HALF = 1.6; ///< Bars from O, of the rhombus, |OQ|.

    explicit StraightLine(double height) {
        plane = add(VrexPlane3D::create(at(0.0, 0.0), u.crossProduct(v)));
        bind(VrexFixation3D::create(plane, VrexFixation3DType::Complete3D));
        const auto o = point(0.0, 0.0);
        const auto q = point(HALF, 0.0);
        for (const auto& pivot : {o, q}) {
            bind(VrexFixation3D::create(pivot, VrexFixation3DType::Complete3D));
        }
        placeCorners(o, q, 0.7);
        bind(VrexDirectionDistance3D::create(q, c, v, height));
    }

    static Vector at(double x, double y) { return Vector(0.5, -1.0, 2.0) + u * x + v * y; }
    static double squareOf(double x, double y) { return x * x + y * y; }
    std::shared_ptr<VrexPoint3D> point(double x, double y) {
        const Vector place = at(x, y);
        return add(VrexPoint3D::create(place.x(), place.y(), place.z()));
    }
    std::shared_ptr<VrexPoint3D> corner(double x, double y) {
        auto result = point(x, y);
        bind(VrexIncidence3D::create(result, plane, VrexIncidence3DType::Default,
                                     VrexGeometryComponentType::UNKNOWN, VrexGeometryComponentType::UNKNOWN));
        return result;
    }
    void bar(const std::shared_ptr<VrexPoint3D>& first, const std::shared_ptr<VrexPoint3D>& second,
             double length) {
        bind(VrexDistance3D::create(first, second, length, VrexGeometryComponentType::UNKNOWN,
                                    VrexGeometryComponentType::UNKNOWN));
    }
    /// With C at this height; A and B lie across the middle of C P, which is on the line O C.
    void placeCorners(const std::shared_ptr<VrexPoint3D>& o, const std::shared_ptr<VrexPoint3D>& q,
                      double height) {
        const double cx = HALF + std::sqrt(HALF * HALF - height * height);
        const double oc = std::sqrt(squareOf(cx, height));
        const double op = (LONG * LONG - SHORT * SHORT) / oc;
        const double middle = 0.5 * (oc + op);
        const double aside = std::sqrt(LONG * LONG - middle * middle);
        const double x = cx / oc;
        const double y = height / oc;
        c = corner(cx, height);
        p = corner(op * x, op * y);
        const auto a = corner(middle * x - aside * y, middle * y + aside * x);
        const auto b = corner(middle * x + aside * y, middle * y - aside * x);
        bar(q, c, HALF);
        for (const auto& end : {a, b}) {
            bar(o, end, LONG);
            bar(end, c, SHORT);
            bar(end, p, SHORT);
        }
    }

    static inline const Vector u = Vector(2.0, 1.0, 2.0) / 3.0;
    static inline const Vector v = Vector(1.0, 2.0, -2.0) / 3.0;
    std::shared_ptr<VrexPlane3D> plane;
    std::shared_ptr<VrexPoint3D> c;
    std::shared_ptr<VrexPoint3D> p;
};

TEST(VrexSolver3DPlanarMechanisms, PeaucelliersLinkageDrawsAStraightLine) {
    const double height = -0.4;
    solveFromRandomStarts(
        0.02, [height] { return StraightLine(height); },
        [height](const StraightLine& linkage, const VrexSolverComponentReport& report) {
            const Vector arm = linkage.p->getPosition() - StraightLine::at(0.0, 0.0);
            const double line = (25.0 - 4.0) / (2.0 * StraightLine::HALF);
            const double cx = 1.6 + std::sqrt(1.6 * 1.6 - height * height);
            EXPECT_EQ(report.freedom, 0U);
            EXPECT_TRUE(report.overConstrained.empty());
            EXPECT_NEAR(arm.dotProduct(StraightLine::u), line, TOLERANCE);
            EXPECT_NEAR(arm.dotProduct(StraightLine::v), line * height / cx, TOLERANCE);
        });
}

} // namespace
