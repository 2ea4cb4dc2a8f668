#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/base/VrexLogRecorder.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexGeometryManager3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "support/Numbered.h"

namespace {

using Geometry = std::shared_ptr<VrexBaseGeometry>;
using Geometries = std::vector<Geometry>;

/// Curves that derive from curves, in one map, by walks over all of it; there are no rings.
struct CurveModel {
    std::map<std::uint64_t, std::uint64_t> parents;

    void add(std::uint64_t child, std::uint64_t parent) {
        if (child != 0 && parent != 0 && child != parent) {
            parents.try_emplace(child, parent);
        }
    }
    std::uint64_t root(std::uint64_t id) const {
        std::uint64_t root = 0;
        for (auto above = parents.find(id); above != parents.end(); above = parents.find(root)) {
            root = above->second;
        }
        return root;
    }
    std::vector<std::uint64_t> children(std::uint64_t id) const {
        std::vector<std::uint64_t> found;
        for (const auto& [child, parent] : parents) {
            if (parent == id) {
                found.push_back(child);
            }
        }
        return found;
    }
    void erase(std::uint64_t id) {
        if (!parents.contains(id)) {
            return;
        }
        for (const std::uint64_t child : children(id)) {
            erase(child);
        }
        parents.erase(id);
    }
};

/// All that the manager keeps, as it is defined, in ordered maps and by walks over all of them.
struct ManagerModel {
    std::map<std::uint64_t, Geometry> stored;
    std::set<std::pair<std::uint64_t, std::uint64_t>> uses;
    std::map<std::uint64_t, std::uint64_t> sets;
    CurveModel offsets;
    CurveModel copies;

    static bool isUser(const Geometry& geometry, bool added) {
        const auto entity = std::dynamic_pointer_cast<VrexGeometry3D>(geometry);
        switch (entity->type()) {
        case VrexGeometry3DType::SPLINE:
        case VrexGeometry3DType::CONNECTOR:
            return true;
        case VrexGeometry3DType::EVAL_CURVE:
            return added;
        default:
            return false;
        }
    }
    void enterUses(const Geometry& user) {
        for (const auto& used : user->getGeometries()) {
            uses.emplace(used->getID(), user->getID());
        }
    }
    void enterMembers(const Geometry& set) {
        for (const auto& member : set->getGeometries()) {
            sets[member->getID()] = set->getID();
        }
    }
    void add(const Geometry& geometry) {
        stored.try_emplace(geometry->getID(), geometry);
        if (std::dynamic_pointer_cast<VrexRigidSet3D>(geometry) != nullptr) {
            enterMembers(geometry);
        } else if (isUser(geometry, true)) {
            enterUses(geometry);
        }
    }
    bool remove(const Geometry& geometry) {
        const std::uint64_t id = geometry->getID();
        for (const auto& used : geometry->getGeometries()) {
            uses.erase({used->getID(), id});
        }
        std::erase_if(sets, [id](const auto& pair) { return pair.first == id || pair.second == id; });
        offsets.erase(id);
        copies.erase(id);
        return stored.erase(id) != 0;
    }
    void relateSet(const Geometry& geometry, std::uint64_t setId) {
        if (setId != 0) {
            sets[geometry->getID()] = setId;
        }
        for (const auto& part : geometry->getGeometries()) {
            relateSet(part, setId);
        }
    }
    void updateSet(const Geometry& set) {
        std::erase_if(sets, [&](const auto& pair) { return pair.second == set->getID(); });
        enterMembers(set);
    }
    void forgetUses(std::uint64_t id) {
        std::erase_if(uses, [id](const auto& pair) { return pair.first == id; });
    }
    void updateUses() {
        uses.clear();
        for (const auto& [id, geometry] : stored) {
            if (isUser(geometry, false)) {
                enterUses(geometry);
            }
        }
    }
    bool isUsed(std::uint64_t id) const {
        return std::any_of(uses.begin(), uses.end(), [id](const auto& pair) { return pair.first == id; });
    }
    Geometries users(std::uint64_t id) const {
        Geometries found;
        for (const auto& [used, user] : uses) {
            if (used == id && stored.contains(user)) {
                found.push_back(stored.at(user));
            }
        }
        return found;
    }
};

/// A manager and its model, driven side by side over points, curves and sets, of which some share an
/// identifier.
class RandomManager : public testing::Test {
protected:
    RandomManager() {
        for (std::uint64_t id = 1; id <= 20; ++id) {
            points.push_back(numbered(VrexPoint3D::create(1.0, 2.0, 3.0), id));
        }
        pool.assign(points.begin(), points.end());
        for (std::uint64_t i = 0; i < 4; ++i) {
            sets.push_back(numbered(VrexRigidSet3D::create({}), 30 + i));
            connectors.push_back(numbered(VrexConnector3D::create(sets.back()), 40 + i));
            splines.push_back(numbered(VrexSpline3D::create({1, false, {}, {{points[i], 1.0}}}), 50 + i % 3));
            pool.insert(pool.end(), {sets.back(), connectors.back(), splines.back()});
            const auto curve =
                VrexEvaluatedCurve3D::create({0.0, 0.0, 0.0}, VrexQuaternionT<double>::ONE(),
                                             {VrexVariableDescriptor(points[i], 0, "a")}, "a", "t", "t");
            pool.push_back(numbered(curve, 50 + i));
        }
    }
    std::uint64_t any(std::uint64_t count) { return engine() % count; }
    const Geometry& anyGeometry() { return pool[any(pool.size())]; }
    std::uint64_t anyId() { return any(LAST_ID); }

    void changeParts() {
        const std::uint64_t i = any(4);
        std::vector<std::shared_ptr<VrexGeometry3D>> members(any(6));
        for (auto& member : members) {
            member = points[any(points.size())];
        }
        if (i > 0) { // from a set to earlier ones, so never a ring
            members.push_back(connectors[any(i)]);
        }
        sets[i]->geometries() = members;
        splines[i]->controlPoints().assign(1 + any(4), {points[any(points.size())], 1.0});
    }
    void relate(std::uint64_t choice) {
        const Geometry& geometry = anyGeometry();
        const std::uint64_t id = anyId();
        switch (choice) {
        case 0:
            manager.addGeometryRelateSet(geometry, id);
            model.relateSet(geometry, id);
            break;
        case 1:
            manager.updateGeometryRelateSet(geometry);
            model.updateSet(geometry);
            break;
        case 2:
            ASSERT_EQ(manager.removeGeometryFromSet(id), model.sets.erase(id) != 0);
            break;
        case 3:
            manager.removeGeometryFromMap(id);
            model.forgetUses(id);
            break;
        default:
            manager.updateRelatedGeometries();
            model.updateUses();
        }
    }
    void derive() {
        const std::uint64_t parent = anyId();
        const std::uint64_t child = parent + any(3); // from greater to smaller, so never a ring
        if (any(2) == 0) {
            manager.addOffsetRelationship(child, parent);
            model.offsets.add(child, parent);
        } else {
            manager.addCopyCurveRelationship(child, parent);
            model.copies.add(child, parent);
        }
    }
    void step() {
        const std::uint64_t choice = any(40);
        if (choice < 5) {
            relate(choice);
        } else if (choice < 9) {
            changeParts();
        } else if (choice < 15) {
            derive();
        } else if (choice < 26) {
            const Geometry& geometry = anyGeometry();
            ASSERT_EQ(manager.removeGeometry(geometry), model.remove(geometry));
        } else if (choice < 39 || any(10) != 0) {
            const Geometry& geometry = anyGeometry();
            manager.addGeometry(geometry);
            model.add(geometry);
        } else {
            manager.clear();
            model = ManagerModel();
        }
    }
    void expectSame(std::uint64_t id) {
        const Geometry probe = numbered(VrexPoint3D::create(0.0, 0.0, 0.0), id);
        ASSERT_EQ(manager.findRelatedGeometries(probe), model.users(id));
        ASSERT_EQ(manager.hasRelatedPattern(id), model.isUsed(id));
        ASSERT_EQ(manager.findRelatedSet(probe), model.sets.contains(id) ? model.sets.at(id) : 0);
        ASSERT_EQ(manager.findOffsetRootCurve(id), model.offsets.root(id));
        ASSERT_EQ(manager.findCopyCurveRootCurve(id), model.copies.root(id));
        ASSERT_EQ(manager.findOffsetChildCurve(id), model.offsets.children(id));
        ASSERT_EQ(manager.findCopyCurveChildCurve(id), model.copies.children(id));
    }
    void expectSame() {
        Geometries stored;
        for (const auto& [id, geometry] : model.stored) {
            stored.push_back(geometry);
        }
        ASSERT_EQ(manager.getGeometries(), stored);
        for (std::uint64_t id = 0; id < LAST_ID + 3; ++id) {
            expectSame(id);
        }
    }

    static constexpr std::uint64_t LAST_ID = 55;
    std::mt19937_64 engine{17};
    VrexLogRecorder recorder{3};
    VrexGeometryManager3D manager{recorder};
    ManagerModel model;
    Geometries pool;
    std::vector<std::shared_ptr<VrexPoint3D>> points;
    std::vector<std::shared_ptr<VrexRigidSet3D>> sets;
    std::vector<std::shared_ptr<VrexConnector3D>> connectors;
    std::vector<std::shared_ptr<VrexSpline3D>> splines;
};

TEST_F(RandomManager, AllMapsFollowTheNaiveModel) {
    for (int i = 0; i < 5'000 && !HasFatalFailure(); ++i) {
        step();
        expectSame();
    }
}

} // namespace
