#include <memory>
#include <numbers>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexBallMate3D.h"
#include "data/constraint/3d/VrexCylinderMate3D.h"
#include "data/constraint/3d/VrexFastenedMate3D.h"
#include "data/constraint/3d/VrexParallelMate3D.h"
#include "data/constraint/3d/VrexPinSlotMate3D.h"
#include "data/constraint/3d/VrexPlanarMate3D.h"
#include "data/constraint/3d/VrexRevoluteMate3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "solver/JacobianChecks.h"
#include "solver/Mechanism.h"
#include "solver/VrexSolver3D.h"
#include "support/RandomShapes.h"

namespace {

/// Two bodies, each with a connector away from its origin.
struct Pair {
    explicit Pair(RandomShapes& random) {
        for (int i = 0; i < 2; ++i) {
            auto set = VrexRigidSet3D::create({});
            set->setTransformation({random.point(), random.rotation()});
            auto connector = VrexConnector3D::create(set);
            connector->setTransformation({random.point(), random.rotation()});
            geometries.push_back(set);
            geometries.push_back(connector);
            connectors.push_back(connector);
        }
    }
    std::vector<std::shared_ptr<VrexConnector3D>> connectors;
    SolverProbe::Geometries geometries;
};

using Maker = std::shared_ptr<VrexMate3D> (*)(const Pair& pair);

const Maker MAKERS[] = {
    [](const Pair& p) -> std::shared_ptr<VrexMate3D> {
        return VrexFastenedMate3D::create(p.connectors[0], p.connectors[1]);
    },
    [](const Pair& p) -> std::shared_ptr<VrexMate3D> {
        return VrexSliderMate3D::create(p.connectors[0], p.connectors[1], {});
    },
    [](const Pair& p) -> std::shared_ptr<VrexMate3D> {
        return VrexRevoluteMate3D::create(p.connectors[0], p.connectors[1], {});
    },
    [](const Pair& p) -> std::shared_ptr<VrexMate3D> {
        return VrexCylinderMate3D::create(p.connectors[0], p.connectors[1], {}, {});
    },
    [](const Pair& p) -> std::shared_ptr<VrexMate3D> {
        return VrexPinSlotMate3D::create(p.connectors[0], p.connectors[1], {}, {});
    },
    [](const Pair& p) -> std::shared_ptr<VrexMate3D> {
        return VrexPlanarMate3D::create(p.connectors[0], p.connectors[1], {}, {}, {});
    },
    [](const Pair& p) -> std::shared_ptr<VrexMate3D> {
        return VrexParallelMate3D::create(p.connectors[0], p.connectors[1], {}, {}, {}, {});
    },
    [](const Pair& p) -> std::shared_ptr<VrexMate3D> {
        return VrexBallMate3D::create(p.connectors[0], p.connectors[1], {});
    },
};

TEST(VrexMateResiduals, DerivativesMatchCentralDifferences) {
    RandomShapes random;
    for (const Maker maker : MAKERS) {
        for (const auto alignment : {VrexConstraintAlignment::Current, VrexConstraintAlignment::Negative}) {
            for (const bool isFixed : {false, true}) {
                const Pair pair(random);
                const auto mate = maker(pair);
                SCOPED_TRACE(nsEnum::toText(mate->type()));
                mate->alignment() = alignment;
                for (std::uint64_t i = 0; i < mate->getDimensionSize(); ++i) {
                    mate->getDimension(i).setFixed(isFixed);
                }
                // A tilt that is nearly opposite is steep: its fifth derivative reaches thousands.
                SolverProbe(pair.geometries, {mate}).expectDerivativesMatch(1e-6);
            }
        }
    }
}

TEST(VrexMateResiduals, AxesThatStartOppositeAreTurned) {
    for (const auto alignment : {VrexConstraintAlignment::Positive, VrexConstraintAlignment::Negative}) {
        const double sense = alignment == VrexConstraintAlignment::Positive ? 1.0 : -1.0;
        for (const double start : {0.0, 0.02, 1.5, 3.1, std::numbers::pi}) {
            Mechanism mechanism;
            const auto base = mechanism.ground();
            const auto arm = mechanism.body();
            const auto turn = VrexQuaternionT<double>::makeFromAngleAndAxis(start, {1.0, 0.0, 0.0}, 1e-9);
            const auto first = mechanism.connector(base, {0.0, 0.0, 0.0});
            const auto second = mechanism.connector(arm, {0.1, 0.2, 0.3}, turn);
            mechanism.bind(VrexRevoluteMate3D::create(first, second, {}))->alignment() = alignment;
            const auto report = VrexSolver3D().solve({mechanism.component()});
            EXPECT_TRUE(report.isConverged());
            const auto frame = arm->getTransformation() * second->getTransformation();
            const auto axis = VrexQuaternionT<double>::rotate({0.0, 0.0, 1.0}, frame.getRotation(), false);
            EXPECT_NEAR(axis.z(), sense, 1e-9) << start;
            EXPECT_NEAR(frame.getTranslation().magnitude(), 0.0, 1e-9);
        }
    }
}

TEST(VrexMateResiduals, AConnectorIsWhereItsSetTakesIt) {
    Mechanism mechanism;
    const auto base = mechanism.ground();
    const auto arm = mechanism.body();
    // A quarter turn about Z takes (1, 0, 0) to (0, 1, 0): the connectors coincide as they stand.
    const auto turn =
        VrexQuaternionT<double>::makeFromAngleAndAxis(std::numbers::pi / 2.0, {0.0, 0.0, 1.0}, 1e-9);
    arm->setTransformation({{5.0, 0.0, 0.0}, turn});
    const auto first = mechanism.connector(base, {5.0, 1.0, 0.0}, turn);
    const auto second = mechanism.connector(arm, {1.0, 0.0, 0.0});
    mechanism.bind(VrexFastenedMate3D::create(first, second));
    auto report = VrexSolver3D().solve({mechanism.component()});
    EXPECT_TRUE(report.isConverged());
    EXPECT_EQ(report.components.at(0).iterations, 0);

    arm->setTransformation({{7.0, 1.0, -2.0}, VrexQuaternionT<double>::ONE()});
    report = VrexSolver3D().solve({mechanism.component()});
    EXPECT_TRUE(report.isConverged());
    EXPECT_NEAR((arm->getOrigin() - VrexVector3DT<double>(5.0, 0.0, 0.0)).magnitude(), 0.0, 1e-9);
    EXPECT_EQ(second->getOrigin().x(), 1.0); // on the set it stays where it is
    EXPECT_EQ(second->getRotation().scalar(), 1.0);
}

} // namespace
