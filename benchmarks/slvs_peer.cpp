// The peer of the solver's benchmark, a program of its own: solves a sketch by libslvs, again and again from
// the same start, and prints the median of the times inside Slvs_Solve, then where the points came to rest.
//
// slvs_peer truss|zigzag FREE_POINTS REPETITIONS

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <numbers>
#include <string_view>
#include <vector>

#include <slvs.h>

#include "Sketch.h"

namespace {

constexpr Slvs_hGroup HELD = 1;
constexpr Slvs_hGroup FREE = 2;

double threadSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

/// The sketch as the library takes it. Handles count from 1: points first, lines behind them.
class Peer {
public:
    explicit Peer(const Sketch& sketch) : m_sketch(sketch) {
        addEntities();
        addConstraints();
    }

    /// The seconds that it took; negative where it failed.
    double solve() {
        resetParameters();
        std::vector<Slvs_hConstraint> failed(m_constraints.size());
        Slvs_System system{};
        system.param = m_parameters.data();
        system.params = static_cast<int>(m_parameters.size());
        system.entity = m_entities.data();
        system.entities = static_cast<int>(m_entities.size());
        system.constraint = m_constraints.data();
        system.constraints = static_cast<int>(m_constraints.size());
        system.calculateFaileds = 1;
        system.failed = failed.data();
        system.faileds = static_cast<int>(failed.size());
        const double start = threadSeconds();
        Slvs_Solve(&system, FREE);
        const double time = threadSeconds() - start;
        return system.result == SLVS_RESULT_OKAY ? time : -1.0;
    }

    void print() const {
        for (std::size_t i = 0; i < m_parameters.size(); i += 3) {
            std::printf("%.17g %.17g %.17g\n", m_parameters[i].val, m_parameters[i + 1].val,
                        m_parameters[i + 2].val);
        }
    }

private:
    static Slvs_hEntity handle(std::size_t place) { return static_cast<Slvs_hEntity>(place + 1); }
    Slvs_hEntity lineHandle(std::size_t line) const { return handle(m_sketch.points().size() + line); }

    void addEntities() {
        for (std::size_t i = 0; i < m_sketch.points().size(); ++i) {
            const Slvs_hGroup group = m_sketch.points()[i].isFixed ? HELD : FREE;
            for (std::size_t axis = 0; axis < 3; ++axis) {
                m_parameters.push_back(Slvs_MakeParam(handle(3 * i + axis), group, 0.0));
            }
            m_entities.push_back(
                Slvs_MakePoint3d(handle(i), group, handle(3 * i), handle(3 * i + 1), handle(3 * i + 2)));
        }
        for (std::size_t i = 0; i < m_sketch.lines().size(); ++i) {
            const Sketch::Line& line = m_sketch.lines()[i];
            m_entities.push_back(Slvs_MakeLineSegment(lineHandle(i), m_sketch.isFixed(line) ? HELD : FREE,
                                                      SLVS_FREE_IN_3D, handle(line.first),
                                                      handle(line.second)));
        }
    }
    void addConstraints() {
        for (const Sketch::Distance& distance : m_sketch.distances()) {
            add(SLVS_C_PT_PT_DISTANCE, distance.value, handle(distance.first), handle(distance.second), 0, 0);
        }
        for (const Sketch::LineDistance& distance : m_sketch.lineDistances()) {
            add(SLVS_C_PT_LINE_DISTANCE, distance.value, handle(distance.point), 0, lineHandle(distance.line),
                0);
        }
        for (const Sketch::Angle& angle : m_sketch.angles()) {
            const double degrees = angle.value * 180.0 / std::numbers::pi;
            add(SLVS_C_ANGLE, degrees, 0, 0, lineHandle(angle.first), lineHandle(angle.second));
        }
    }
    void add(int kind, double value, Slvs_hEntity firstPoint, Slvs_hEntity secondPoint,
             Slvs_hEntity firstLine, Slvs_hEntity secondLine) {
        m_constraints.push_back(Slvs_MakeConstraint(handle(m_constraints.size()), FREE, kind, SLVS_FREE_IN_3D,
                                                    value, firstPoint, secondPoint, firstLine, secondLine));
    }
    void resetParameters() {
        for (std::size_t i = 0; i < m_parameters.size(); ++i) {
            m_parameters[i].val = m_sketch.points()[i / 3].start[i % 3];
        }
    }

    const Sketch& m_sketch;
    std::vector<Slvs_Param> m_parameters;
    std::vector<Slvs_Entity> m_entities;
    std::vector<Slvs_Constraint> m_constraints;
};

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("usage: slvs_peer truss|zigzag FREE_POINTS REPETITIONS\n", stderr);
        return 2;
    }
    const std::size_t points = std::strtoul(argv[2], nullptr, 10);
    const Sketch sketch =
        std::string_view(argv[1]) == "truss" ? Sketch::truss(points) : Sketch::zigzag(points);
    Peer peer(sketch);
    std::vector<double> times(std::max(1UL, std::strtoul(argv[3], nullptr, 10)));
    std::generate(times.begin(), times.end(), [&peer] { return peer.solve(); });
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    std::printf("%.9e\n", *std::min_element(times.begin(), times.end()) < 0.0 ? -1.0 : *middle);
    peer.print();
    return 0;
}
