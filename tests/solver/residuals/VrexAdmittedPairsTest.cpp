#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexAngle3D.h"
#include "data/constraint/3d/VrexConcentricity3D.h"
#include "data/constraint/3d/VrexConstraint3DPreValidatorTables.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexEqualRadius3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/constraint/3d/VrexPerpendicularity3D.h"
#include "data/constraint/3d/VrexTangency3D.h"
#include "solver/FreeForms.h"
#include "solver/JacobianChecks.h"
#include "solver/RandomEntities.h"
#include "solver/SolverRuns.h"

namespace {

using Type = VrexGeometry3DType;
using Component = VrexGeometryComponentType;
using Kind = VrexConstraint3DType;
using nsFreeForms::Built;

/// What a constraint binds: an entity of this kind, or a component of it.
struct Bound {
    Type type;
    Component component;

    Type matched() const { return nsPreValidation::typeOfComponent(type, component); }
    std::string name() const {
        std::string text = getEnumeratorText(type);
        return component == Component::UNKNOWN
                   ? text
                   : text.append(".").append(nsPreValidation::enumeratorOf(component));
    }
};

struct Case {
    Kind kind;
    Bound first;
    Bound second;

    std::string name() const {
        return std::string(nsEnum::toText(kind)) + " " + first.name() + " " + second.name();
    }
};

constexpr Kind BY_COMPONENTS[] = {Kind::Distance3D, Kind::Incidence3D, Kind::Tangency3D};
constexpr Kind BY_KINDS[] = {Kind::Angle3D, Kind::Parallelism3D, Kind::Perpendicularity3D,
                             Kind::Concentricity3D};
constexpr Component RADII[] = {Component::UNKNOWN, Component::MAJOR, Component::MINOR};

/// The entities of this kind, with and without components.
std::vector<Bound> boundsOf(const std::vector<Type>& types) {
    std::vector<Bound> result;
    for (const Type type : types) {
        for (const auto component : {Component::UNKNOWN, Component::CENTER, Component::AXIS, Component::PLANE,
                                     Component::SPINE, Component::APEX}) {
            if (nsPreValidation::findComponentOwners(component)->contains(type)) {
                result.push_back({type, component});
            }
        }
    }
    return result;
}

bool isAdmitted(Kind kind, Type first, Type second) {
    return nsPreValidation::findRule(kind)->pairs->contains(first, second);
}

void addPairs(Kind kind, const std::vector<Bound>& bounds, std::vector<Case>& cases) {
    for (const Bound& first : bounds) {
        for (const Bound& second : bounds) {
            if (isAdmitted(kind, first.matched(), second.matched())) {
                cases.push_back({kind, first, second});
            }
        }
    }
}

/// A radius has to be chosen where there are two.
void addEqualRadii(const std::vector<Type>& types, std::vector<Case>& cases) {
    std::vector<Bound> bounds;
    for (const Type type : types) {
        const bool hasTwo = type == Type::ELLIPSE || type == Type::TORUS;
        for (const Component component : RADII) {
            if (hasTwo == (component != Component::UNKNOWN)) {
                bounds.push_back({type, component});
            }
        }
    }
    addPairs(Kind::EqualRadius3D, bounds, cases);
}

/// All pairs of these kinds, in both orders, that requests of constraints may name.
std::vector<Case> admitted(const std::vector<Type>& types) {
    std::vector<Case> cases;
    for (const Kind kind : BY_COMPONENTS) {
        addPairs(kind, boundsOf(types), cases);
    }
    std::vector<Bound> wholes;
    for (const Type type : types) {
        wholes.push_back({type, Component::UNKNOWN});
    }
    for (const Kind kind : BY_KINDS) {
        addPairs(kind, wholes, cases);
    }
    addEqualRadii(types, cases);
    return cases;
}

std::shared_ptr<VrexConstraint3D> makeConstraint(const Case& row,
                                                 const std::shared_ptr<VrexGeometry3D>& first,
                                                 const std::shared_ptr<VrexGeometry3D>& second) {
    const Component one = row.first.component;
    const Component other = row.second.component;
    switch (row.kind) {
    case Kind::Distance3D:
        return VrexDistance3D::create(first, second, 0.7, one, other);
    case Kind::Incidence3D:
        return VrexIncidence3D::create(first, second, VrexIncidence3DType::Default, one, other);
    case Kind::Tangency3D:
        return VrexTangency3D::create(first, second, one, other);
    case Kind::Angle3D:
        return VrexAngle3D::create(first, second, 1.1);
    case Kind::Parallelism3D:
        return VrexParallelism3D::create(first, second);
    case Kind::Perpendicularity3D:
        return VrexPerpendicularity3D::create(first, second);
    case Kind::Concentricity3D:
        return VrexConcentricity3D::create(first, second);
    default: {
        const auto radiusOf = [](Component component) {
            VrexRadius3DType radius{};
            VrexEqualRadius3D::setRadiusType(radius, component);
            return radius;
        };
        return VrexEqualRadius3D::create(first, radiusOf(one), second, radiusOf(other), one, other);
    }
    }
}

const std::vector<Type> SIMPLE(nsRandomEntities::KINDS.begin(), nsRandomEntities::KINDS.end());

TEST(VrexAdmittedPairs, DerivativesMatchCentralDifferences) {
    RandomShapes random;
    for (const Case& row : admitted(SIMPLE)) {
        SCOPED_TRACE(row.name());
        const auto first = nsRandomEntities::make(row.first.type, random);
        const auto second = nsRandomEntities::make(row.second.type, random);
        // Where two are near to touching the way between them turns fast.
        expectJacobianMatches(makeConstraint(row, first, second), {first, second}, {}, 1e-5);
    }
}

/// Whether it is solved from one of a few random starts.
bool canSolve(const Case& row, RandomShapes& random) {
    SCOPED_TRACE(row.name());
    for (int i = 0; i < 5; ++i) {
        const auto first = nsRandomEntities::make(row.first.type, random);
        const auto second = nsRandomEntities::make(row.second.type, random);
        const auto constraint = makeConstraint(row, first, second);
        const auto report = solveOne({first, second}, {constraint});
        // From some starts an ellipse shrinks to nothing, where all its points say the same.
        if (report.isConverged && report.remarks.empty() && report.overConstrained.empty()) {
            EXPECT_EQ(constraint->satisfiedStatus(), VrexConstraintSatisfiedStatus::Satisfied);
            return true;
        }
    }
    return false;
}

TEST(VrexAdmittedPairs, AllOfSimpleEntitiesAreSolved) {
    RandomShapes random;
    const auto cases = admitted(SIMPLE);
    EXPECT_EQ(cases.size(), 1391U); // as the page on constraints tells
    for (const Case& row : cases) {
        EXPECT_TRUE(canSolve(row, random)) << row.name();
    }
}

/// An entity of any kind, with its parts.
Built makeAny(Type type, RandomShapes& random) {
    for (const auto& [name, make] : nsFreeForms::MAKERS) {
        Built built = make();
        if (built.entity->type() == type) {
            return built;
        }
    }
    return {{}, nsRandomEntities::make(type, random)};
}

/// Expects that a pair which the solver refuses is reported by kind and identifier, as not solved.
void expectReported(const Case& row, const std::vector<std::shared_ptr<VrexGeometry3D>>& entities,
                    const std::shared_ptr<VrexConstraint3D>& constraint) {
    const auto report = solveOne(entities, {constraint});
    ASSERT_EQ(report.remarks.size(), 1U) << row.name();
    EXPECT_EQ(report.remarks[0].id, constraint->getID());
    EXPECT_EQ(report.remarks[0].kind, nsEnum::toText(row.kind));
    EXPECT_FALSE(report.remarks[0].reason.empty());
    EXPECT_EQ(constraint->status(), VrexConstraintStatus::NotSolved);
    EXPECT_EQ(constraint->satisfiedStatus(), VrexConstraintSatisfiedStatus::Unknown);
}

constexpr Type FREE_FORMS[] = {Type::SPLINE, Type::EVAL_CURVE, Type::NURBS_SURFACE, Type::SPIN_SURFACE,
                               Type::SWEEP_SURFACE};

/// Pairs with a free form in first place; two free forms in one order, since their points are sought on
/// both. Components of the others behave as what they are matched as.
std::vector<Case> admittedOfFreeForms() {
    std::vector<Type> types = SIMPLE;
    types.insert(types.end(), std::begin(FREE_FORMS), std::end(FREE_FORMS));
    const auto placeOf = [&types](Type type) { return std::find(types.begin(), types.end(), type); };
    auto cases = admitted(types);
    std::erase_if(cases, [&](const Case& row) {
        const auto first = placeOf(row.first.type);
        const bool isSimple = first < types.begin() + static_cast<std::ptrdiff_t>(SIMPLE.size());
        const bool isWhole =
            row.second.component == Component::UNKNOWN || row.second.type == Type::SPIN_SURFACE;
        return isSimple || !isWhole || placeOf(row.second.type) > first;
    });
    return cases;
}

TEST(VrexAdmittedPairs, FreeFormsAreSupportedOrReported) {
    RandomShapes random;
    std::set<std::string> refused;
    for (const Case& row : admittedOfFreeForms()) {
        const Built first = makeAny(row.first.type, random);
        const Built second = makeAny(row.second.type, random);
        const auto constraint = makeConstraint(row, first.entity, second.entity);
        auto entities = nsFreeForms::allOf(first);
        for (const auto& entity : nsFreeForms::allOf(second)) {
            entities.push_back(entity);
        }
        SolverProbe probe({entities.begin(), entities.end()}, {constraint});
        if (!probe.refusals().empty()) {
            refused.insert(row.name());
            expectReported(row, entities, constraint);
        } else {
            EXPECT_GT(probe.values().size(), 0) << row.name();
            EXPECT_TRUE(probe.values().allFinite()) << row.name();
        }
    }
    EXPECT_EQ(refused, std::set<std::string>());
}

} // namespace
