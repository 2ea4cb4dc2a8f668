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
#include "support/RandomShapes.h"

namespace {

/// Two bodies, each with a connector away from its origin.
struct Pair {
    explicit Pair(RandomShapes& random) {
        for (int i = 0; i < 2; ++i) {
            auto set = VrexRigidSet3D::create({});
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

} // namespace
