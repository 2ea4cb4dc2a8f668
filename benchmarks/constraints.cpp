// Checks of constraint requests against what one writes first: a map from kind to a set of pairs. Both look
// at the count, at nulls and at identifiers, and then for the pair; the peer's sets hold the same pairs. A
// refusal is set beside the recording of its message.
//
// A distance between two points made and destroyed, against a make_shared object that holds the same fields
// and appends its arguments.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "RatioReport.h"
#include "data/base/VrexDefaultToleranceGetter.h"
#include "data/base/VrexLogRecorder.h"
#include "data/constraint/3d/VrexConstraint3DPreValidator.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/VrexGeometryVariable.h"

namespace {

using Component = VrexGeometryComponentType;
using Geometries = VrexConstraint3DPreValidator::Geometries;
using Kind = VrexConstraint3DType;
using Type = VrexGeometry3DType;

/// An entity of any kind.
class Entity : public VrexGeometry3D {
public:
    Entity(Type type, std::uint64_t id) : VrexGeometry3D(type, 1) { setID(id); }

    std::shared_ptr<VrexBaseObject> makeCopy() override { return std::make_shared<Entity>(type(), getID()); }
    const char* getNamePrefix() const override { return "e"; }
    int dof() const override { return 0; }

private:
    void restoreFromCopy(const VrexBaseObject&) override {}
};

struct Request {
    Kind kind;
    Geometries geometries;
};

using PairSets = std::map<Kind, std::set<std::pair<Type, Type>>>;

/// What both have to answer, in an order that no branch predictor learns.
struct Workload {
    std::vector<Request> accepted;
    std::vector<Request> refused;
    PairSets pairs;
};

constexpr Kind PAIR_KINDS[] = {Kind::Distance3D,    Kind::Incidence3D,      Kind::Angle3D,
                               Kind::Parallelism3D, Kind::Concentricity3D,  Kind::SurfaceNormal3D,
                               Kind::Tangency3D,    Kind::EqualDirection3D, Kind::EqualCurvature3D};

bool isAccepted(const Request& request) {
    const VrexDefaultToleranceGetter tolerances;
    VrexLogRecorder recorder(1);
    const VrexConstraint3DPreValidator validator(tolerances, recorder);
    return validator.preCheckConstraint3DType(request.geometries, request.kind, Component::UNKNOWN,
                                              Component::UNKNOWN);
}

Workload makeWorkload() {
    Workload workload;
    constexpr auto types = static_cast<int>(Type::TYPES_COUNT);
    for (const Kind kind : PAIR_KINDS) {
        for (int pair = 0; pair < types * types; ++pair) {
            const auto first = std::make_shared<Entity>(static_cast<Type>(pair / types), 1);
            const auto second = std::make_shared<Entity>(static_cast<Type>(pair % types), 2);
            const Request request{kind, {first, second}};
            const bool accepted = isAccepted(request);
            (accepted ? workload.accepted : workload.refused).push_back(request);
            if (accepted) {
                workload.pairs[kind].emplace(first->type(), second->type());
            }
        }
    }
    std::mt19937 random(20); // any fixed seed
    std::ranges::shuffle(workload.accepted, random);
    std::ranges::shuffle(workload.refused, random);
    return workload;
}

const Workload& workload() {
    static const Workload made = makeWorkload();
    return made;
}

bool isAdmittedByPeer(const PairSets& sets, const Request& request) {
    const Geometries& pair = request.geometries;
    if (pair.size() != 2 || pair[0] == nullptr || pair[1] == nullptr ||
        pair[0]->getID() == pair[1]->getID()) {
        return false;
    }
    const auto found = sets.find(request.kind);
    return found != sets.end() && found->second.contains({pair[0]->type(), pair[1]->type()});
}

/// One request a step.
template <class Check>
void check(benchmark::State& state, const std::vector<Request>& requests, Check check) {
    std::size_t next = 0;
    for ([[maybe_unused]] auto step : state) {
        benchmark::DoNotOptimize(check(requests[next]));
        next = next + 1 < requests.size() ? next + 1 : 0;
    }
}

void acceptByMap(benchmark::State& state) {
    check(state, workload().accepted,
          [](const Request& request) { return isAdmittedByPeer(workload().pairs, request); });
}

void acceptByValidator(benchmark::State& state) {
    const VrexDefaultToleranceGetter tolerances;
    VrexLogRecorder recorder(1);
    const VrexConstraint3DPreValidator validator(tolerances, recorder);
    check(state, workload().accepted, [&](const Request& request) {
        return validator.preCheckConstraint3DType(request.geometries, request.kind, Component::UNKNOWN,
                                                  Component::UNKNOWN);
    });
}

/// The search, and a message of the length that the validator's has.
void refuseByMap(benchmark::State& state) {
    check(state, workload().refused, [](const Request& request) {
        VrexLogRecorder recorder(1);
        if (!isAdmittedByPeer(workload().pairs, request)) {
            recorder.recordMessage(VrexErrorCode::GEOMETRY_TYPE_ERROR,
                                   "Do not supported geometry types combination (%s, %s)",
                                   getEnumeratorText(request.geometries[0]->type()),
                                   getEnumeratorText(request.geometries[1]->type()));
        }
        return recorder.isNoError();
    });
}

void refuseByValidator(benchmark::State& state) {
    const VrexDefaultToleranceGetter tolerances;
    check(state, workload().refused, [&](const Request& request) {
        VrexLogRecorder recorder(1);
        const VrexConstraint3DPreValidator validator(tolerances, recorder);
        return validator.preCheckConstraint3DType(request.geometries, request.kind, Component::UNKNOWN,
                                                  Component::UNKNOWN);
    });
}

class PeerDistance : public std::enable_shared_from_this<PeerDistance> {
public:
    PeerDistance(const std::shared_ptr<VrexGeometry3D>& geometry1,
                 const std::shared_ptr<VrexGeometry3D>& geometry2, double number, Component component1,
                 Component component2)
        : components{component1, component2}, value(number) {
        geometries.push_back(geometry1);
        geometries.push_back(geometry2);
    }
    virtual ~PeerDistance() = default;

    std::uint64_t base = 0;
    std::uint64_t id = 0;
    std::string label;
    std::shared_ptr<PeerDistance> backup;
    std::vector<double> parameters;
    bool dirty = true;
    int status = -1, satisfiedStatus = -1, solveMethodStatus = -1;
    bool geometriesChanged = true;
    int alignment = 0, orientation = 0;
    std::vector<std::shared_ptr<VrexBaseGeometry>> geometries;
    std::weak_ptr<PeerDistance> parent;
    Kind kind = Kind::Distance3D;
    std::optional<VrexVector3DT<double>> helpPoint1, helpPoint2;
    std::optional<VrexVector2DT<double>> helpParam1, helpParam2;
    std::optional<VrexConstraintBiasData3D> bias;
    Component components[2];
    bool fixHelpParameter1 = false, fixHelpParameter2 = false;
    double value;
    std::weak_ptr<VrexGeometryVariable> variable;
    bool rigid = false;
    VrexDimensionLimits limits;
};

/// One distance a step, made and destroyed.
template <class Make>
void makeDistance(benchmark::State& state, Make make) {
    const std::shared_ptr<VrexGeometry3D> first = VrexPoint3D::create(1.0, 2.0, 3.0);
    const std::shared_ptr<VrexGeometry3D> second = VrexPoint3D::create(4.0, 5.0, 6.0);
    for ([[maybe_unused]] auto step : state) {
        benchmark::DoNotOptimize(make(first, second, 2.5, Component::UNKNOWN, Component::UNKNOWN));
    }
}

void makeDistanceByPeer(benchmark::State& state) {
    makeDistance(state,
                 [](const auto&... arguments) { return std::make_shared<PeerDistance>(arguments...); });
}

void makeDistanceByVrex(benchmark::State& state) { makeDistance(state, VrexDistance3D::create); }

} // namespace

int main(int argc, char** argv) {
    benchmark::RegisterBenchmark("pair_accepted/peer_map_of_sets", acceptByMap);
    benchmark::RegisterBenchmark("pair_accepted/validator", acceptByValidator);
    benchmark::RegisterBenchmark("pair_refused/peer_map_and_message", refuseByMap);
    benchmark::RegisterBenchmark("pair_refused/validator", refuseByValidator);
    benchmark::RegisterBenchmark("distance_made/peer_make_shared", makeDistanceByPeer);
    benchmark::RegisterBenchmark("distance_made/create", makeDistanceByVrex);
    return RatioReport::run(argc, argv);
}
