// The whole way of two robots: read from a description, validated, cut into components, handed to the solver
// as a stream, taken back, reported and saved as documents. An arm reaches for a point, and a platform takes
// a pose.
//
//     run DATA OUT        reads the robots in the folder DATA and writes into the folder OUT

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <vector>

#include "data/3d/VrexAssigner3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexMate3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/graph/VrexComponentGenerator.h"
#include "data/graph/VrexConnectedComponent.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexDepthFirstSearch.h"
#include "data/serialization/3d/VrexStreamGraphDecoder3D.h"
#include "data/serialization/3d/VrexStreamGraphEncoder3D.h"
#include "data/serialization/3d/VrexSystem3DSerializer.h"
#include "exchange/VrexUrdfReader.h"
#include "solver/VrexSolver3D.h"
#include "tools/vrex/VrexConstraintCheck.h"
#include "tools/vrex/VrexFile.h"

namespace {

using Vector = VrexVector3DT<double>;
using Components = std::vector<std::shared_ptr<VrexConnectedComponent>>;

constexpr double PER_DEGREE = 3.141592653589793 / 180.0;

/// A robot on its way.
class Robot {
public:
    explicit Robot(const std::filesystem::path& file) {
        VrexUrdfImport imported = VrexUrdfReader().read(file);
        for (const VrexUrdfFinding& finding : imported.findings) {
            if (finding.severity != VrexUrdfSeverity::Note) {
                throw std::runtime_error(finding.file + ":" + std::to_string(finding.line) + ": " +
                                         finding.message);
            }
        }
        m_geometries = imported.system->geometries();
        m_constraints = imported.system->constraints();
        m_lastId = m_geometries.size() + m_constraints.size();
        std::printf("%s\n  read       %zu geometries, %zu constraints\n", file.filename().c_str(),
                    m_geometries.size(), m_constraints.size());
    }

    template <class Class, class List>
    static std::shared_ptr<Class> labelled(const List& list, const std::string& label) {
        for (const auto& object : list) {
            auto known = std::dynamic_pointer_cast<Class>(object);
            if (known != nullptr && known->label() == label) {
                return known;
            }
        }
        throw std::runtime_error("nothing is called " + label);
    }
    template <class Class>
    std::shared_ptr<Class> geometry(const std::string& label) const {
        return labelled<Class>(m_geometries, label);
    }
    const VrexMateDimension3D& joint(const std::string& label) const {
        return labelled<VrexMate3D>(m_constraints, label)->getDimension(0);
    }

    void add(const std::shared_ptr<VrexGeometry3D>& geometry) {
        geometry->setID(++m_lastId);
        m_geometries.push_back(geometry);
    }
    void bind(const char* label, const std::shared_ptr<VrexConstraint3D>& constraint) {
        constraint->setID(++m_lastId);
        constraint->label() = label;
        m_constraints.push_back(constraint);
    }
    void fix(const char* label, const std::shared_ptr<VrexGeometry3D>& geometry) {
        bind(label, VrexFixation3D::create(geometry, VrexFixation3DType::Complete3D));
    }

    /// Throws for the first constraint that would not be admitted.
    void validate() const {
        VrexConstraintCheck check;
        for (const auto& constraint : m_constraints) {
            if (const auto refusal = check(*constraint)) {
                throw std::runtime_error(constraint->label() + ": " + refusal->message);
            }
        }
        std::printf("  validated  %zu constraints are admitted\n", m_constraints.size());
    }

    /// Throws where it is not solved.
    void solve() const {
        const Components components = split();
        VrexStreamGraphEncoder3D problem;
        VrexStreamGraphEncoder3D answer;
        VrexSolverReport report;
        problem.encodeConstraintGraphs(components);
        unsigned int sent = 0;
        const std::unique_ptr<unsigned char, Release> buffer(problem.dumpBuffer(sent));
        if (!VrexSolver3D().solve(buffer.get(), sent, answer, report) || !report.isConverged()) {
            throw std::runtime_error("not solved");
        }
        unsigned int received = 0;
        const std::unique_ptr<unsigned char, Release> solved(answer.dumpBuffer(received));
        takeBack(solved.get(), received);
        tell(components.size(), sent, received, report);
    }

    void save(const std::filesystem::path& file) const {
        VrexSystem3DSerializer serializer({});
        serializer.serialize({m_geometries, {}, m_constraints, {}, 1e-8, 1e-11, {}, {}});
        std::filesystem::create_directories(file.parent_path());
        nsVrexFile::save(file, serializer.jsonStream());
        std::printf("  saved      %s\n", file.c_str());
    }

private:
    struct Release {
        void operator()(unsigned char* buffer) const { VrexStreamGraphEncoder3D::freeBuffer(buffer); }
    };

    Components split() const {
        VrexConstraintGraph graph({m_geometries.begin(), m_geometries.end()},
                                  {m_constraints.begin(), m_constraints.end()});
        VrexDepthFirstSearch walk;
        VrexComponentGenerator generator;
        walk.traverse(graph, generator);
        return generator.getComponents();
    }

    /// What came back goes onto the objects of the same identifiers.
    void takeBack(const unsigned char* buffer, unsigned int size) const {
        Components components;
        if (!VrexStreamGraphDecoder3D().decodeConstraintGraphs(buffer, size, components)) {
            throw std::runtime_error("the solver's answer does not read");
        }
        for (const auto& component : components) {
            assign(component->getGeometries(), m_geometries);
            assign(component->getConstraints(), m_constraints);
        }
    }

    template <class Base, class Class>
    static void assign(const std::vector<std::shared_ptr<Base>>& solved,
                       const std::vector<std::shared_ptr<Class>>& ours) {
        std::unordered_map<std::uint64_t, std::shared_ptr<Class>> byId;
        for (const auto& object : ours) {
            byId[object->getID()] = object;
        }
        for (const auto& object : solved) {
            VrexAssigner3D()(dynamic_cast<const Class&>(*object), *byId.at(object->getID()));
        }
    }

    static void tell(std::size_t components, unsigned int sent, unsigned int received,
                     const VrexSolverReport& report) {
        std::size_t freedom = 0;
        int iterations = 0;
        double residual = 0.0;
        for (const VrexSolverComponentReport& component : report.components) {
            freedom += component.freedom;
            iterations += component.iterations;
            residual = std::fmax(residual, component.largestResidual);
        }
        std::printf("  split      %zu component%s; %u bytes to the solver, %u back\n", components,
                    components == 1 ? "" : "s", sent, received);
        std::printf("  solved     %d iterations, residual %s, %zu degrees of freedom left\n", iterations,
                    residual <= 1e-10 ? "below 1e-10" : "above 1e-10", freedom);
    }

    std::vector<std::shared_ptr<VrexGeometry3D>> m_geometries;
    std::vector<std::shared_ptr<VrexConstraint3D>> m_constraints;
    std::uint64_t m_lastId = 0;
};

void printJoint(const Robot& robot, const std::string& label, double unit, const char* unitName) {
    const VrexMateDimension3D& joint = robot.joint(label);
    const auto& [lower, upper] = joint.limits;
    std::printf("    %-14s %9.3f %s, within %.0f and %.0f\n", label.c_str(), joint.value / unit, unitName,
                lower.value_or(-INFINITY) / unit, upper.value_or(INFINITY) / unit);
}

void reach(const std::filesystem::path& data, const std::filesystem::path& out) {
    Robot arm(data / "six_axis_arm.urdf");
    const Vector goal(-0.45, -0.35, 0.30);
    const auto target = VrexPoint3D::create(goal.x(), goal.y(), goal.z());
    const auto grip = arm.geometry<VrexSphere3D>("grip");
    std::printf("  asked      grip from (%.3f, %.3f, %.3f) to (%.3f, %.3f, %.3f) m\n", grip->getCenter().x(),
                grip->getCenter().y(), grip->getCenter().z(), goal.x(), goal.y(), goal.z());
    arm.add(target);
    arm.fix("target", target);
    arm.bind("reach",
             VrexIncidence3D::create(grip, target, VrexIncidence3DType::Default,
                                     VrexGeometryComponentType::CENTER, VrexGeometryComponentType::UNKNOWN));
    arm.validate();
    arm.solve();
    for (const char* const joint :
         {"shoulder_pan", "shoulder_lift", "elbow", "wrist_1_turn", "wrist_2_turn", "wrist_3_turn"}) {
        printJoint(arm, joint, PER_DEGREE, "degrees");
    }
    std::printf("    grip misses the target by %s\n",
                grip->getCenter().distanceTo(goal) < 1e-9 ? "less than a nanometre" : "more than that");
    arm.save(out / "six_axis_arm.json");
}

void pose(const std::filesystem::path& data, const std::filesystem::path& out) {
    Robot platform(data / "stewart_platform.urdf");
    const auto plate = platform.geometry<VrexRigidSet3D>("plate");
    plate->setTransformation({{0.05, -0.03, 0.62}, 12.0 * PER_DEGREE, {1.0, 1.0, 0.0}});
    platform.fix("pose", plate);
    std::printf("  asked      plate at (0.050, -0.030, 0.620) m, tilted by 12 degrees about (1, 1, 0)\n");
    platform.validate();
    platform.solve();
    for (const char* const ram : {"ram_1", "ram_2", "ram_3", "ram_4", "ram_5", "ram_6"}) {
        printJoint(platform, ram, 0.001, "mm");
    }
    platform.save(out / "stewart_platform.json");
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::fprintf(stderr, "usage: run DATA OUT\n");
        return 1;
    }
    try {
        reach(arguments[1], arguments[2]);
        pose(arguments[1], arguments[2]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        std::perror("the screen cannot be written");
        return 1;
    }
    return 0;
}
