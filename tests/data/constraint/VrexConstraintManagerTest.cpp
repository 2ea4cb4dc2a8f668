#include "data/constraint/VrexConstraintManager.h"

#include <map>
#include <random>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/base/VrexLogRecorder.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "support/Numbered.h"
#include "support/ProbeConstraint.h"
#include "support/RefusalChecks.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Geometries = std::vector<std::shared_ptr<VrexBaseGeometry>>;
using Constraints = std::vector<std::shared_ptr<VrexBaseConstraint>>;

/// A constraint that can be made of others.
class CompoundConstraint : public ProbeConstraint {
public:
    std::vector<std::shared_ptr<VrexBaseConstraint>> getConstraints() override { return parts; }
    Constraints parts;
};

std::shared_ptr<CompoundConstraint> constraint(std::uint64_t id, const Geometries& geometries,
                                               Constraints parts = {}) {
    auto made = numbered(std::make_shared<CompoundConstraint>(), id);
    for (const auto& geometry : geometries) {
        made->addGeometry(geometry);
    }
    made->parts = std::move(parts);
    return made;
}

std::shared_ptr<VrexBaseGeometry> point(std::uint64_t id) {
    return numbered(VrexPoint3D::create(1.0, 2.0, 3.0), id);
}

class OpenManager : public VrexConstraintManager {
public:
    using VrexConstraintManager::getRelatedConstraintMap;
    using VrexConstraintManager::getRelatedGeometryMap;
    using VrexConstraintManager::removeRelatedMap;
    using VrexConstraintManager::VrexConstraintManager;
};

class VrexConstraintManagerTest : public testing::Test {
protected:
    VrexLogRecorder recorder{3};
    OpenManager manager{recorder};
    std::shared_ptr<VrexBaseGeometry> a = point(1);
    std::shared_ptr<VrexBaseGeometry> b = point(2);
};

TEST_F(VrexConstraintManagerTest, ATakenIdentifierIsRefusedAndTheMapsStay) {
    const auto first = constraint(7, {a});
    manager.addConstraint(first);
    expectRefusal(recorder, VrexErrorCode::ID_EXISTED,
                  "Failed to add constraint, the constraint id has existed, id : 7.",
                  [&] { manager.addConstraint(constraint(7, {b}, {first})); });
    EXPECT_EQ(manager.findData(7), first);
    EXPECT_THAT(manager.getRelatedGeometryMap().find(1), ElementsAre(7));
    EXPECT_FALSE(manager.getRelatedGeometryMap().contains(2));
    EXPECT_FALSE(manager.getRelatedConstraintMap().contains(7));
}

TEST_F(VrexConstraintManagerTest, OfConstraintsWithoutIdentifierOnlyTheFirstIsStored) {
    manager.addConstraint(constraint(0, {a}));
    expectRefusal(recorder, VrexErrorCode::ID_EXISTED,
                  "Failed to add constraint, the constraint id has existed, id : 0.",
                  [&] { manager.addConstraint(constraint(0, {b})); });
}

TEST_F(VrexConstraintManagerTest, NullIsRefusedByEveryOperation) {
    manager.addConstraint(constraint(7, {a}));
    const std::shared_ptr<VrexBaseConstraint> noConstraint;
    const std::shared_ptr<VrexBaseGeometry> noGeometry;
    const std::function<void()> constraintCalls[] = {
        [&] { manager.addConstraint(noConstraint); },
        [&] { EXPECT_FALSE(manager.removeConstraint(noConstraint)); },
        [&] { EXPECT_THAT(manager.findRelatedConstraints(noConstraint), IsEmpty()); },
        [&] { manager.updateRelatedGeometries(noConstraint); }};
    for (const auto& call : constraintCalls) {
        expectRefusal(recorder, VrexErrorCode::CONSTRAINT_ID_INVALID,
                      "Failed to find related constraint, the constraint is invalid, id : 0.", call);
    }
    const std::function<void()> geometryCalls[] = {
        [&] { EXPECT_THAT(manager.findRelatedConstraints(noGeometry), IsEmpty()); },
        [&] { manager.removeRelatedMap(noGeometry, {7}); }};
    for (const auto& call : geometryCalls) {
        expectRefusal(recorder, VrexErrorCode::GEOMETRY_ID_INVALID, "The geometry is nullptr!", call);
    }
    EXPECT_THAT(manager.getRelatedGeometryMap().find(1), ElementsAre(7));
}

TEST_F(VrexConstraintManagerTest, NullElementsArePassedOver) {
    const auto made = constraint(7, {nullptr, a}, {nullptr});
    manager.addConstraint(made);
    manager.updateRelatedGeometries(made);
    EXPECT_THAT(manager.findRelatedConstraints(a), ElementsAre(made));
    EXPECT_TRUE(manager.removeConstraint(made));
    EXPECT_TRUE(recorder.isNoError());
}

TEST_F(VrexConstraintManagerTest, ConstraintsRiseByIdentifier) {
    const auto late = constraint(70000, {a, b});
    const auto early = constraint(3, {b, b});
    manager.addConstraint(late);
    manager.addConstraint(early);
    EXPECT_THAT(manager.getConstraints(), ElementsAre(early, late));
    EXPECT_THAT(manager.findRelatedConstraints(b), ElementsAre(early, late));
    EXPECT_THAT(manager.findRelatedConstraints(a), ElementsAre(late));
    EXPECT_THAT(manager.findRelatedConstraints(point(9)), IsEmpty());
}

TEST_F(VrexConstraintManagerTest, EquationsAreFoundByTheirVariables) {
    const auto variable = numbered(VrexGeometryVariable::create(2.0), 5);
    const auto equation = numbered(
        VrexExpressionEquation::create({{variable, 0, "d"}}, VrexEquationConditionType::greaterThanZero, "d"),
        8);
    manager.addConstraint(equation);
    EXPECT_THAT(manager.findRelatedConstraints(std::shared_ptr<VrexBaseGeometry>(variable)),
                ElementsAre(equation));
}

TEST_F(VrexConstraintManagerTest, TheEntryGoesWithTheLastConstraintOnAGeometry) {
    const auto first = constraint(7, {a});
    const auto second = constraint(8, {a, a});
    manager.addConstraint(first);
    manager.addConstraint(second);
    EXPECT_TRUE(manager.removeConstraint(first));
    EXPECT_THAT(manager.findRelatedConstraints(a), ElementsAre(second));
    EXPECT_TRUE(manager.removeConstraint(second));
    EXPECT_FALSE(manager.removeConstraint(second));
    EXPECT_THAT(manager.findRelatedConstraints(a), IsEmpty());
    EXPECT_FALSE(manager.getRelatedGeometryMap().contains(1));
    EXPECT_TRUE(recorder.isNoError());
}

TEST_F(VrexConstraintManagerTest, DependentsAreFoundAndStayKnownWhenThePartGoes) {
    const auto part = constraint(7, {a});
    const auto whole = constraint(8, {}, {part});
    manager.addConstraint(part);
    manager.addConstraint(whole);
    const std::shared_ptr<VrexBaseConstraint> key = part;
    EXPECT_THAT(manager.findRelatedConstraints(key), ElementsAre(whole));
    manager.removeConstraint(part);
    EXPECT_THAT(manager.findRelatedConstraints(key), ElementsAre(whole));
    manager.removeConstraint(whole);
    EXPECT_FALSE(manager.getRelatedConstraintMap().contains(7));
}

TEST_F(VrexConstraintManagerTest, AMissingConstraintIsRecordedAndTheOthersAreFound) {
    const auto stays = constraint(9, {a});
    manager.addConstraint(constraint(7, {a}));
    manager.addConstraint(constraint(8, {a}));
    manager.addConstraint(stays);
    manager.removeData(7);
    manager.removeData(8);
    const LogCapture log;
    EXPECT_THAT(manager.findRelatedConstraints(a), ElementsAre(stays));
    EXPECT_EQ(recorder.getErrorMessage(),
              refusalText(VrexErrorCode::CONSTRAINT_ID_INVALID,
                          "Failed to find related constraint, the constraint is invalid, id : 8."));
    ASSERT_EQ(log.lines().size(), 2U);
    EXPECT_EQ(log.lines()[0].text,
              refusalText(VrexErrorCode::CONSTRAINT_ID_INVALID,
                          "Failed to find related constraint, the constraint is invalid, id : 7."));
}

TEST_F(VrexConstraintManagerTest, UpdatingRegistersNewGeometriesAndKeepsFormerOnes) {
    const auto moved = constraint(7, {a});
    manager.addConstraint(moved);
    moved->geometries() = {b};
    manager.updateRelatedGeometries(moved);
    EXPECT_THAT(manager.findRelatedConstraints(a), ElementsAre(moved));
    EXPECT_THAT(manager.findRelatedConstraints(b), ElementsAre(moved));
    manager.removeRelatedMap(a, {6, 7});
    EXPECT_FALSE(manager.getRelatedGeometryMap().contains(1));
    EXPECT_THAT(manager.findRelatedConstraints(b), ElementsAre(moved));
}

TEST_F(VrexConstraintManagerTest, ClearKeepsTheOverConstrainedSubsets) {
    const auto part = constraint(7, {a});
    manager.addConstraint(part);
    manager.addConstraint(constraint(8, {}, {part}));
    const std::vector<std::vector<std::uint64_t>> subsets{{7, 8}, {}, {8}};
    manager.setOverConstrainedSubsets(subsets);
    VrexBaseDataManager<VrexBaseConstraint>& base = manager;
    base.clear();
    EXPECT_THAT(manager.getConstraints(), IsEmpty());
    EXPECT_FALSE(manager.getRelatedGeometryMap().contains(1));
    EXPECT_FALSE(manager.getRelatedConstraintMap().contains(7));
    EXPECT_EQ(manager.getOverConstrainedSubsets(), subsets);
}

/// The relations as they are defined, as pairs, without a thought for speed.
struct NaiveConstraints {
    std::map<std::uint64_t, std::shared_ptr<CompoundConstraint>> stored;
    std::set<std::pair<std::uint64_t, std::uint64_t>> onGeometry;
    std::set<std::pair<std::uint64_t, std::uint64_t>> madeOf;

    void update(CompoundConstraint& added) {
        for (const auto& geometry : added.getGeometries()) {
            onGeometry.emplace(geometry->getID(), added.getID());
        }
    }
    void add(const std::shared_ptr<CompoundConstraint>& added) {
        if (!stored.try_emplace(added->getID(), added).second) {
            return;
        }
        update(*added);
        for (const auto& part : added->parts) {
            madeOf.emplace(part->getID(), added->getID());
        }
    }
    bool remove(CompoundConstraint& removed) {
        for (const auto& geometry : removed.getGeometries()) {
            onGeometry.erase({geometry->getID(), removed.getID()});
        }
        for (const auto& part : removed.parts) {
            madeOf.erase({part->getID(), removed.getID()});
        }
        return stored.erase(removed.getID()) != 0;
    }
    Constraints found(const std::set<std::pair<std::uint64_t, std::uint64_t>>& pairs,
                      std::uint64_t key) const {
        Constraints list;
        for (const auto& [from, id] : pairs) {
            if (from == key && stored.contains(id)) {
                list.push_back(stored.at(id));
            }
        }
        return list;
    }
};

TEST_F(VrexConstraintManagerTest, RelationsFollowTheNaiveModelThroughRandomSequences) {
    std::mt19937 engine(5);
    Geometries points;
    for (std::uint64_t id = 1; id <= 6; ++id) {
        points.push_back(point(id));
    }
    const auto somePoints = [&] {
        Geometries some(engine() % 4);
        for (auto& each : some) {
            each = points[engine() % points.size()];
        }
        return some;
    };
    std::vector<std::shared_ptr<CompoundConstraint>> all;
    for (std::uint64_t i = 0; i < 16; ++i) {
        Constraints parts;
        if (i >= 8) {
            parts = {all[engine() % 8], all[engine() % 8]};
        }
        all.push_back(constraint(100 + i % 13, somePoints(), parts)); // a few share an identifier
    }
    NaiveConstraints model;
    for (int step = 0; step < 3'000; ++step) {
        const auto& each = all[engine() % all.size()];
        switch (engine() % 6) {
        case 0:
            each->geometries() = somePoints();
            break;
        case 1:
            manager.updateRelatedGeometries(each);
            model.update(*each);
            break;
        case 2:
        case 3:
            ASSERT_EQ(manager.removeConstraint(each), model.remove(*each));
            break;
        default:
            manager.addConstraint(each);
            model.add(each);
        }
        for (const auto& geometry : points) {
            ASSERT_EQ(manager.findRelatedConstraints(geometry),
                      model.found(model.onGeometry, geometry->getID()));
        }
        for (const auto& key : all) {
            ASSERT_EQ(manager.findRelatedConstraints(std::shared_ptr<VrexBaseConstraint>(key)),
                      model.found(model.madeOf, key->getID()));
        }
    }
}

} // namespace
