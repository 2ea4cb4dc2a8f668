#pragma once

#include <cstddef>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "data/VrexVariable.h"
#include "data/VrexVariableDescriptor.h"
#include "data/VrexVisitor3D.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/graph/VrexComponentGenerator.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexDepthFirstSearch.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "data/serialization/3d/VrexSystem3DDeserializer.h"
#include "data/serialization/3d/VrexSystem3DSerializer.h"
#include "tolvbase/LumoJson.h"

/// Everything that one does with a system that was read, whatever it holds: each step may throw, none may
/// crash or hang.
namespace nsSystemUse {

/// Takes descriptors away, by which objects may keep each other alive in a ring.
class RingBreaker : public VrexVisitor3D {
public:
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) override { curve.setDescriptors({}); }
    void visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) override { surface.setDescriptors({}); }
};

inline void breakRings(const VrexImmutableSystem3D& system) {
    RingBreaker breaker;
    system.accept(breaker);
}

/// Whether the step came to its end.
template <class Step>
bool tryStep(const Step& step) {
    try {
        step();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

/// Asks each object for what it can tell.
class Evaluation : public VrexVisitor3D {
public:
    void visitBaseGeometry(VrexBaseGeometry& geometry) override {
        tryStep([&] { (void)geometry.dof(); });
        (void)geometry.getGeometries();
        (void)geometry.getVariables();
        geometry.backup();
        (void)geometry.checkChanged(1e-6, 1e-8);
        geometry.clearBackup();
    }
    void visitParametricCurve3D(VrexParametricCurve3D& curve) override {
        visitBaseGeometry(curve);
        tryStep([&] { (void)curve.interval(); });
        for (const double t : {0.0, 0.5, -3.0}) {
            tryStep([&] { (void)curve.evaluate(t, 2); });
        }
    }
    void visitParametricSurface3D(VrexParametricSurface3D& surface) override {
        visitBaseGeometry(surface);
        tryStep([&] { (void)surface.intervalU(); });
        tryStep([&] { (void)surface.intervalV(); });
        for (const double t : {0.0, 0.5, -3.0}) {
            tryStep([&] { (void)surface.evaluate(t, 1.0 - t, 2); });
        }
    }
    void visitBaseConstraint(VrexBaseConstraint& constraint) override {
        tryStep([&] { (void)constraint.doc(); });
        (void)constraint.isCompleteFixed();
        (void)constraint.getConstraints();
    }
    void visitBaseEquation(VrexBaseEquation& equation) override {
        visitBaseConstraint(equation);
        std::vector<VrexVariable> arguments;
        for (const VrexVariableDescriptor& descriptor : equation.descriptors()) {
            arguments.emplace_back(descriptor.getValue());
        }
        tryStep([&] { (void)equation.evaluate(arguments); });
        tryStep([&] { (void)equation.evaluate({}); });
    }
};

/// The number of components.
inline std::size_t walk(const VrexImmutableSystem3D& system) {
    std::vector<std::shared_ptr<VrexBaseGeometry>> geometries(system.geometries().begin(),
                                                              system.geometries().end());
    geometries.insert(geometries.end(), system.variables().begin(), system.variables().end());
    std::vector<std::shared_ptr<VrexBaseConstraint>> constraints(system.constraints().begin(),
                                                                 system.constraints().end());
    constraints.insert(constraints.end(), system.equations().begin(), system.equations().end());
    VrexConstraintGraph graph(geometries, constraints);
    VrexComponentGenerator generator;
    VrexDepthFirstSearch().traverse(graph, generator);
    return generator.getComponents().size();
}

/// The text of the system; empty if it cannot be written.
inline std::string textOf(const VrexImmutableSystem3D& system) {
    VrexSystem3DSerializer serializer{{}};
    std::string text;
    tryStep([&] {
        serializer.serialize(system);
        text = serializer.jsonStream();
    });
    return text;
}

/// Writes the system and reads it again; whether both went well.
inline bool readAgain(const VrexImmutableSystem3D& system) {
    const std::string text = textOf(system);
    VrexImmutableSystem3D again;
    const bool isRead = !text.empty() && tryStep([&] { deserialize(LumoJson::parse(text), again, {}); });
    breakRings(again);
    return isRead;
}

/// Evaluates, walks, copies and writes, and reads again. What is read has no rings any more afterwards.
inline void use(const VrexImmutableSystem3D& system) {
    Evaluation evaluation;
    system.accept(evaluation);
    tryStep([&] { walk(system); });
    tryStep([&] {
        const auto copy = system.deepCopy();
        breakRings(copy);
    });
    readAgain(system);
    breakRings(system);
}

/// Reads a document and uses what comes of it, also where reading ends half way; whether it was read to its
/// end.
inline bool readAndUse(const LumoJson& document) {
    VrexImmutableSystem3D system;
    const bool isRead = tryStep([&] { deserialize(document, system, {}); });
    use(system);
    return isRead;
}

inline bool readAndUse(const std::string& text) {
    LumoJson document;
    return tryStep([&] { document = LumoJson::parse(text); }) && readAndUse(document);
}

} // namespace nsSystemUse
