// The managers through the life of a system: N geometries, of which each fifth is a spline over four points
// and each point belongs to a set of a hundred, and 1.5 N distances between random points are added, asked
// for what uses them, registered anew and removed. The peer is what one writes first: standard maps with the
// users of an object in a vector. The workloads of other sizes show how the cost grows. In the hubs, which
// the peer would take a square of time for, one set holds all points and one point bears all distances.

#include <algorithm>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "RatioReport.h"
#include "data/base/VrexLogRecorder.h"
#include "data/constraint/3d/VrexConstraintManager3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/geometry/3d/VrexGeometryManager3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSpline3D.h"

namespace {

using Geometry = std::shared_ptr<VrexBaseGeometry>;
using Constraint = std::shared_ptr<VrexBaseConstraint>;

/// The objects of a system, made once for all variants.
struct System {
    std::vector<Geometry> geometries;
    std::vector<Constraint> constraints;

    explicit System(std::uint64_t count) {
        std::mt19937_64 engine(1);
        std::vector<std::shared_ptr<VrexPoint3D>> points;
        for (std::uint64_t id = 1; id <= count; ++id) {
            if (id % 5 == 0) {
                std::vector<VrexSpline3D::ControlPoint> control;
                for (int i = 0; i < 4; ++i) {
                    control.push_back({points[engine() % points.size()], 1.0});
                }
                geometries.push_back(VrexSpline3D::create({1, false, {}, control}));
            } else {
                points.push_back(VrexPoint3D::create(1.0, 2.0, 3.0));
                geometries.push_back(points.back());
            }
            geometries.back()->setID(id);
        }
        for (std::uint64_t id = 1; id <= count + count / 2; ++id) {
            const auto& first = points[engine() % points.size()];
            const auto& second = points[engine() % points.size()];
            constraints.push_back(VrexDistance3D::create(
                first, second, 1.0, VrexGeometryComponentType::UNKNOWN, VrexGeometryComponentType::UNKNOWN));
            constraints.back()->setID(id);
        }
    }
    static const System& ofSize(std::uint64_t count) {
        static std::unordered_map<std::uint64_t, std::unique_ptr<System>> systems;
        auto& system = systems[count];
        if (system == nullptr) {
            system = std::make_unique<System>(count);
        }
        return *system;
    }
};

std::uint64_t setOf(std::uint64_t id) { return 1'000'000'000 + id / 100; }

struct Managers {
    VrexLogRecorder recorder{1};
    VrexGeometryManager3D geometries{recorder};
    VrexConstraintManager3D constraints{recorder};

    void add(const Geometry& geometry) {
        geometries.addGeometry(geometry);
        geometries.addGeometryRelateSet(geometry, setOf(geometry->getID()));
    }
    void add(const Constraint& constraint) { constraints.addConstraint(constraint); }
    std::size_t uses(const Geometry& geometry) {
        return geometries.findRelatedGeometries(geometry).size() +
               constraints.findRelatedConstraints(geometry).size();
    }
    void update(const Constraint& constraint) { constraints.updateRelatedGeometries(constraint); }
    void remove(const Geometry& geometry) { geometries.removeGeometry(geometry); }
    void remove(const Constraint& constraint) { constraints.removeConstraint(constraint); }
};

struct Peer {
    using Users = std::unordered_map<std::uint64_t, std::vector<std::uint64_t>>;
    std::unordered_map<std::uint64_t, Geometry> geometries;
    std::unordered_map<std::uint64_t, Constraint> constraints;
    Users geometryUsers;
    Users constraintUsers;
    std::unordered_map<std::uint64_t, std::uint64_t> sets;

    template <class List>
    static void enter(Users& users, const List& used, std::uint64_t user) {
        for (const auto& each : used) {
            auto& list = users[each->getID()];
            if (std::find(list.begin(), list.end(), user) == list.end()) {
                list.push_back(user);
            }
        }
    }
    template <class List>
    static void leave(Users& users, const List& used, std::uint64_t user) {
        for (const auto& each : used) {
            const auto found = users.find(each->getID());
            if (found != users.end()) {
                std::erase(found->second, user);
                if (found->second.empty()) {
                    users.erase(found);
                }
            }
        }
    }
    void add(const Geometry& geometry) {
        const std::uint64_t id = geometry->getID();
        const auto used = geometry->getGeometries();
        geometries.emplace(id, geometry);
        enter(geometryUsers, used, id);
        sets[id] = setOf(id);
        for (const auto& each : used) {
            sets[each->getID()] = setOf(id);
        }
    }
    void add(const Constraint& constraint) {
        constraints.emplace(constraint->getID(), constraint);
        update(constraint);
    }
    template <class Map>
    static std::size_t stored(const Users& users, std::uint64_t id, const Map& objects) {
        std::vector<typename Map::mapped_type> found;
        if (const auto list = users.find(id); list != users.end()) {
            for (const std::uint64_t user : list->second) {
                found.push_back(objects.at(user));
            }
        }
        return found.size();
    }
    std::size_t uses(const Geometry& geometry) {
        return stored(geometryUsers, geometry->getID(), geometries) +
               stored(constraintUsers, geometry->getID(), constraints);
    }
    void update(const Constraint& constraint) {
        enter(constraintUsers, constraint->getGeometries(), constraint->getID());
    }
    void remove(const Geometry& geometry) {
        leave(geometryUsers, geometry->getGeometries(), geometry->getID());
        sets.erase(geometry->getID());
        geometries.erase(geometry->getID());
    }
    void remove(const Constraint& constraint) {
        leave(constraintUsers, constraint->getGeometries(), constraint->getID());
        constraints.erase(constraint->getID());
    }
};

template <class Store>
void addAll(Store& store, const System& system) {
    for (const auto& geometry : system.geometries) {
        store.add(geometry);
    }
    for (const auto& constraint : system.constraints) {
        store.add(constraint);
    }
}

template <class Store>
std::size_t findAll(Store& store, const System& system) {
    std::size_t count = 0;
    for (const auto& geometry : system.geometries) {
        count += store.uses(geometry);
    }
    return count;
}

template <class Store>
void updateAll(Store& store, const System& system) {
    for (const auto& constraint : system.constraints) {
        store.update(constraint);
    }
}

template <class Store>
void removeAll(Store& store, const System& system) {
    for (const auto& constraint : system.constraints) {
        store.remove(constraint);
    }
    for (const auto& geometry : system.geometries) {
        store.remove(geometry);
    }
}

constexpr std::uint64_t COUNT = 100'000;

template <class Store>
void add(benchmark::State& state) {
    const System& system = System::ofSize(COUNT);
    for ([[maybe_unused]] auto step : state) {
        Store store;
        addAll(store, system);
        state.PauseTiming(); // what is freed here is measured by the life of a system
        removeAll(store, system);
        state.ResumeTiming();
    }
}

template <class Store>
void find(benchmark::State& state) {
    const System& system = System::ofSize(COUNT);
    Store store;
    addAll(store, system);
    for ([[maybe_unused]] auto step : state) {
        benchmark::DoNotOptimize(findAll(store, system));
    }
}

template <class Store>
void update(benchmark::State& state) {
    const System& system = System::ofSize(COUNT);
    Store store;
    addAll(store, system);
    for ([[maybe_unused]] auto step : state) {
        updateAll(store, system);
    }
}

template <class Store>
void remove(benchmark::State& state) {
    const System& system = System::ofSize(COUNT);
    for ([[maybe_unused]] auto step : state) {
        state.PauseTiming();
        Store store;
        addAll(store, system);
        state.ResumeTiming();
        removeAll(store, system);
    }
}

template <class Store, std::uint64_t count>
void life(benchmark::State& state) {
    const System& system = System::ofSize(count);
    for ([[maybe_unused]] auto step : state) {
        Store store;
        addAll(store, system);
        benchmark::DoNotOptimize(findAll(store, system));
        updateAll(store, system);
        removeAll(store, system);
    }
}

/// Points 1 to `count` and as many distances from the first of them.
struct Hub {
    std::vector<std::shared_ptr<VrexPoint3D>> points;
    std::vector<Constraint> constraints;

    explicit Hub(std::uint64_t count) {
        for (std::uint64_t id = 1; id <= count; ++id) {
            points.push_back(VrexPoint3D::create(1.0, 2.0, 3.0));
            points.back()->setID(id);
            constraints.push_back(VrexDistance3D::create(points.front(), points.back(), 1.0,
                                                         VrexGeometryComponentType::UNKNOWN,
                                                         VrexGeometryComponentType::UNKNOWN));
            constraints.back()->setID(id);
        }
    }
};

template <std::uint64_t count>
void hub(benchmark::State& state) {
    const Hub system(count);
    for ([[maybe_unused]] auto step : state) {
        Managers managers;
        for (const auto& point : system.points) {
            managers.geometries.addGeometry(point);
            managers.geometries.addGeometryRelateSet(point, 1'000'000'000);
        }
        for (const auto& constraint : system.constraints) {
            managers.add(constraint);
        }
        benchmark::DoNotOptimize(managers.uses(system.points.front()));
        for (const auto& constraint : system.constraints) {
            managers.remove(constraint);
        }
        for (const auto& point : system.points) {
            managers.remove(Geometry(point));
        }
    }
}

template <class Store>
void registerStore(const std::string& variant) {
    const std::pair<const char*, void (*)(benchmark::State&)> workloads[] = {
        {"add/", add<Store>},
        {"find_uses/", find<Store>},
        {"update/", update<Store>},
        {"remove/", remove<Store>},
        {"life_of_10000/", life<Store, 10'000>},
        {"life_of_100000/", life<Store, 100'000>},
        {"life_of_1000000/", life<Store, 1'000'000>}};
    for (const auto& [name, workload] : workloads) {
        benchmark::RegisterBenchmark((name + variant).c_str(), workload);
    }
}

} // namespace

int main(int argc, char** argv) {
    registerStore<Peer>("peer_plain_maps");
    registerStore<Managers>("managers");
    benchmark::RegisterBenchmark("hub_of_10000/managers", hub<10'000>);
    benchmark::RegisterBenchmark("hub_of_100000/managers", hub<100'000>);
    return RatioReport::run(argc, argv);
}
