// One million points through their life: create, look up by identifier, back up, visit, destroy. The peer is
// what one writes first: a make_shared object that holds a vector, a string and the same fields, in an
// unordered_map.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "RatioReport.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexVisitor3D.h"
#include "data/base/VrexBaseDataManager.h"
#include "data/geometry/3d/VrexPoint3D.h"

namespace {

constexpr std::uint64_t COUNT = 1'000'000;

class PeerPoint;

class PeerVisitor {
public:
    virtual ~PeerVisitor() = default;
    virtual void visit(PeerPoint& point) = 0;
};

class PeerPoint : public std::enable_shared_from_this<PeerPoint> {
public:
    PeerPoint(double x, double y, double z) : parameters{x, y, z} {}
    virtual ~PeerPoint() = default;
    virtual void accept(PeerVisitor& visitor) { visitor.visit(*this); }

    std::uint64_t type = 2;
    std::uint64_t id = 0;
    std::string label;
    std::shared_ptr<PeerPoint> backup;
    std::vector<double> parameters;
    bool dirty = true;
    int status = -1;
    int changeStatus = 2;
    int kind = 0;
    std::optional<std::pair<std::vector<std::pair<std::uint64_t, double>>,
                            std::vector<std::pair<std::uint64_t, double>>>>
        bias;
};

struct Peer {
    using Store = std::unordered_map<std::uint64_t, std::shared_ptr<PeerPoint>>;
    class Sum : public PeerVisitor {
    public:
        double sum = 0.0;
        void visit(PeerPoint& point) override { sum += point.parameters[0]; }
    };

    static std::shared_ptr<PeerPoint> make(std::uint64_t id) {
        auto point = std::make_shared<PeerPoint>(static_cast<double>(id), 2.0, 3.0);
        point->id = id;
        return point;
    }
    static void add(Store& store, const std::shared_ptr<PeerPoint>& point) {
        store.try_emplace(point->id, point);
    }
    static std::shared_ptr<PeerPoint> find(const Store& store, std::uint64_t id) {
        const auto found = store.find(id);
        return found != store.end() ? found->second : nullptr;
    }
    static void backup(PeerPoint& point) { point.backup = std::make_shared<PeerPoint>(point); }
};

struct Vrex {
    using Store = VrexBaseDataManager<VrexBaseGeometry>;
    class Sum : public VrexVisitor3D {
    public:
        double sum = 0.0;
        void visitPoint3D(VrexPoint3D& point) override { sum += point.getPosition().x(); }
    };

    static std::shared_ptr<VrexPoint3D> make(std::uint64_t id) {
        auto point = VrexPoint3D::create(static_cast<double>(id), 2.0, 3.0);
        point->setID(id);
        return point;
    }
    static void add(Store& store, const std::shared_ptr<VrexPoint3D>& point) { store.addData(point); }
    static std::shared_ptr<VrexBaseGeometry> find(const Store& store, std::uint64_t id) {
        return store.findData(id);
    }
    static void backup(VrexPoint3D& point) { point.backup(); }
};

template <class Library>
using Points = std::vector<decltype(Library::make(1))>;

template <class Library>
Points<Library> makePoints() {
    Points<Library> points;
    points.reserve(COUNT);
    for (std::uint64_t id = 1; id <= COUNT; ++id) {
        points.push_back(Library::make(id));
    }
    return points;
}

/// Times `work` alone, and not what makes its input or frees its result.
template <class Work>
void timed(benchmark::State& state, Work work) {
    const double start = RatioReport::threadSeconds();
    work();
    state.SetIterationTime(RatioReport::threadSeconds() - start);
}

template <class Library>
void create(benchmark::State& state) {
    for ([[maybe_unused]] auto step : state) {
        Points<Library> points;
        timed(state, [&points] { points = makePoints<Library>(); });
    }
}

template <class Library>
void destroy(benchmark::State& state) {
    for ([[maybe_unused]] auto step : state) {
        auto points = makePoints<Library>();
        timed(state, [&points] { points.clear(); });
    }
}

/// Order of the look-ups: a fixed shuffle of blocks of neighbours, as components are worked on one after the
/// other.
std::vector<std::uint64_t> lookUpOrder() {
    std::vector<std::uint64_t> order;
    order.reserve(COUNT);
    constexpr std::uint64_t block = 100;
    for (std::uint64_t i = 0; i < COUNT / block; ++i) {
        const std::uint64_t start = i * 7919 % (COUNT / block) * block;
        for (std::uint64_t j = 1; j <= block; ++j) {
            order.push_back(start + j);
        }
    }
    return order;
}

template <class Library>
void lookUp(benchmark::State& state) {
    typename Library::Store store;
    for (const auto& point : makePoints<Library>()) {
        Library::add(store, point);
    }
    const auto order = lookUpOrder();
    for ([[maybe_unused]] auto step : state) {
        timed(state, [&] {
            for (const std::uint64_t id : order) {
                benchmark::DoNotOptimize(Library::find(store, id));
            }
        });
    }
}

template <class Library>
void backUp(benchmark::State& state) {
    for ([[maybe_unused]] auto step : state) {
        auto points = makePoints<Library>();
        timed(state, [&points] {
            for (const auto& point : points) {
                Library::backup(*point);
            }
        });
    }
}

template <class Library>
void visit(benchmark::State& state) {
    const auto points = makePoints<Library>();
    for ([[maybe_unused]] auto step : state) {
        timed(state, [&points] {
            typename Library::Sum visitor;
            for (const auto& point : points) {
                point->accept(visitor);
            }
            benchmark::DoNotOptimize(visitor.sum);
        });
    }
}

template <class Library>
void registerLibrary(const std::string& variant) {
    const std::pair<const char*, void (*)(benchmark::State&)> workloads[] = {{"create/", create<Library>},
                                                                             {"look_up/", lookUp<Library>},
                                                                             {"back_up/", backUp<Library>},
                                                                             {"visit/", visit<Library>},
                                                                             {"destroy/", destroy<Library>}};
    for (const auto& [name, workload] : workloads) {
        benchmark::RegisterBenchmark((name + variant).c_str(), workload)->UseManualTime();
    }
}

} // namespace

int main(int argc, char** argv) {
    registerLibrary<Peer>("peer_make_shared");
    registerLibrary<Vrex>("points");
    return RatioReport::run(argc, argv);
}
