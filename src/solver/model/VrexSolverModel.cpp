#include "solver/model/VrexSolverModel.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <unordered_set>
#include <utility>

#include "data/3d/VrexGeometryTransformation3DVisitor.h"
#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexTransformation3DT.h"
#include "data/constraint/3d/VrexDimension3D.h"
#include "data/constraint/3d/VrexEqualDimension3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "solver/model/VrexSolverEntity.h"
#include "solver/model/VrexSolverNames.h"

namespace {

using Geometries = VrexSolverModel::Geometries;

/// Puts the entities of sets that hang together into one group. Groups, and entities in them, come in the
/// order of the list, parts that are not listed behind it.
class Grouping {
public:
    explicit Grouping(const Geometries& geometries) {
        for (const auto& geometry : geometries) {
            if (geometry != nullptr) {
                enter(geometry);
            }
        }
        for (std::size_t i = 0; i < m_entities.size(); ++i) { // grows on the way
            if (isCarrier(*m_entities[i])) {
                joinAll(i);
            }
        }
    }

    std::vector<Geometries> groups() {
        std::vector<Geometries> result;
        std::unordered_map<std::size_t, std::size_t> groupOfRoot;
        for (std::size_t i = 0; i < m_entities.size(); ++i) {
            const auto [entry, isNew] = groupOfRoot.try_emplace(rootOf(i), result.size());
            if (isNew) {
                result.emplace_back();
            }
            result[entry->second].push_back(m_entities[i]);
        }
        return result;
    }

private:
    std::size_t enter(const std::shared_ptr<VrexBaseGeometry>& geometry) {
        const auto [entry, isNew] = m_places.try_emplace(geometry.get(), m_entities.size());
        if (isNew) {
            m_entities.push_back(geometry);
            m_parents.push_back(entry->second);
            m_isJoined.push_back(false);
        }
        return entry->second;
    }

    static bool isCarrier(const VrexBaseGeometry& geometry) {
        return dynamic_cast<const VrexRigidSet3D*>(&geometry) != nullptr ||
               dynamic_cast<const VrexConnector3D*>(&geometry) != nullptr;
    }

    /// Also what a member is built on moves with the set.
    void joinAll(std::size_t carrier) {
        std::vector<std::size_t> open{carrier};
        while (!open.empty()) {
            const std::size_t owner = open.back();
            open.pop_back();
            if (!m_isJoined[owner]) {
                m_isJoined[owner] = true;
                joinParts(owner, open);
            }
        }
    }

    void joinParts(std::size_t owner, std::vector<std::size_t>& open) {
        for (const auto& part : m_entities[owner]->getGeometries()) {
            if (part != nullptr && dynamic_cast<const VrexGeometryVariable*>(part.get()) == nullptr) {
                const std::size_t place = enter(part);
                m_parents[rootOf(place)] = rootOf(owner);
                open.push_back(place);
            }
        }
    }

    std::size_t rootOf(std::size_t place) {
        while (m_parents[place] != place) {
            m_parents[place] = m_parents[m_parents[place]];
            place = m_parents[place];
        }
        return place;
    }

    Geometries m_entities;
    std::vector<std::size_t> m_parents;
    std::vector<bool> m_isJoined;
    std::unordered_map<const VrexBaseGeometry*, std::size_t> m_places;
};

/// Those that constraints say so of, and what they are made of, such as control points.
class CompletelyFixed {
public:
    explicit CompletelyFixed(const VrexSolverModel::Constraints& constraints) {
        for (const auto& constraint : constraints) {
            if (constraint != nullptr && constraint->isCompleteFixed() &&
                !constraint->getGeometries().empty()) {
                add(constraint->getGeometries().front());
            }
        }
    }

    bool contains(const std::shared_ptr<VrexBaseGeometry>& geometry) const {
        return m_known.contains(geometry.get());
    }

private:
    /// The number of a pattern is one thing, the line along which it counts another.
    static bool hasLineOfItsOwn(const VrexBaseGeometry& geometry) {
        return dynamic_cast<const VrexPattern3D*>(&geometry) != nullptr;
    }
    void add(const std::shared_ptr<VrexBaseGeometry>& fixed) {
        Geometries open{fixed};
        while (!open.empty()) {
            const auto geometry = open.back();
            open.pop_back();
            if (geometry == nullptr || !m_known.insert(geometry.get()).second || hasLineOfItsOwn(*geometry)) {
                continue;
            }
            const auto parts = geometry->getGeometries();
            open.insert(open.end(), parts.begin(), parts.end());
        }
    }

    std::unordered_set<const VrexBaseGeometry*> m_known;
};

bool isLength(const VrexDimension3D& dimension) {
    switch (dimension.type()) {
    case VrexConstraint3DType::Distance3D:
    case VrexConstraint3DType::DirectionDistance3D:
    case VrexConstraint3DType::ParallelDistance3D:
    case VrexConstraint3DType::Radius3D:
    case VrexConstraint3DType::MajorRadius3D:
    case VrexConstraint3DType::MinorRadius3D:
        return true;
    default:
        return false;
    }
}

/// The lengths that a dimension asks for, so that points that still lie on each other have a scale too.
double lengthOf(const VrexBaseConstraint& constraint) {
    const auto* dimension = dynamic_cast<const VrexDimension3D*>(&constraint);
    return dimension != nullptr && isLength(*dimension) ? std::abs(dimension->value()) : 0.0;
}

/// Whether the direction of the entity is that of its every part.
bool isStraight(const VrexBaseGeometry* geometry) {
    return dynamic_cast<const VrexLine3D*>(geometry) != nullptr ||
           dynamic_cast<const VrexPlane3D*>(geometry) != nullptr ||
           dynamic_cast<const VrexCylinder3D*>(geometry) != nullptr;
}

/// The two that a parallelism binds; nulls for another constraint, and for circles and their like.
std::pair<const VrexBaseGeometry*, const VrexBaseGeometry*>
parallelPair(const VrexBaseConstraint& constraint) {
    const auto* const known = dynamic_cast<const VrexParallelism3D*>(&constraint);
    if (known == nullptr || known->getGeometries().size() != 2) {
        return {};
    }
    const VrexBaseGeometry* const first = known->getGeometries()[0].get();
    const VrexBaseGeometry* const second = known->getGeometries()[1].get();
    if (!isStraight(first) || !isStraight(second)) {
        return {};
    }
    return std::minmax(first, second, std::less<>());
}

/// Without nulls, in order.
VrexEqualDimension3D::Dimensions dimensionsInEqualities(const VrexSolverModel::Constraints& constraints) {
    VrexEqualDimension3D::Dimensions result;
    for (const auto& constraint : constraints) {
        if (const auto* const equality = dynamic_cast<const VrexEqualDimension3D*>(constraint.get())) {
            const auto& dimensions = equality->getDimensions();
            result.insert(result.end(), dimensions.begin(), dimensions.end());
        }
    }
    std::erase(result, nullptr);
    return result;
}

/// The longest of its sizes that are lengths.
double lengthOf(const VrexSolverBody& body) {
    double length = 0.0;
    for (const std::size_t i : {0U, 1U}) {
        length = body.isLength(i) ? std::max(length, std::abs(body.size(i))) : length;
    }
    return length;
}

/// The box of all points that count.
class Extent {
public:
    void add(const VrexVector3DT<double>& point) {
        for (int i = 0; i < 3; ++i) {
            m_low[i] = std::min(m_low[i], point[i]);
            m_high[i] = std::max(m_high[i], point[i]);
        }
    }
    double diagonal() const { return m_low.x() > m_high.x() ? 0.0 : (m_high - m_low).magnitude(); }

private:
    static constexpr double INFINITE = std::numeric_limits<double>::infinity();
    VrexVector3DT<double> m_low{INFINITE, INFINITE, INFINITE};
    VrexVector3DT<double> m_high{-INFINITE, -INFINITE, -INFINITE};
};

} // namespace

VrexSolverModel::VrexSolverModel(const Geometries& geometries, const Constraints& constraints) {
    addBodies(Grouping(geometries).groups(), constraints);
    findLengths(constraints);
    Extent extent;
    double length = 0.0;
    for (const VrexSolverBody& body : m_system.bodies()) {
        extent.add(body.frame().origin);
        length = std::max(length, lengthOf(body));
    }
    for (const auto& constraint : constraints) {
        if (constraint != nullptr) {
            length = std::max(length, lengthOf(*constraint));
            m_parallel.insert(parallelPair(*constraint));
        }
    }
    length = std::max(length, extent.diagonal());
    m_system.numberUnknowns(length > 0.0 && std::isfinite(length) ? length : 1.0);
    addCommonValues(constraints);
}

void VrexSolverModel::findLengths(const Constraints& constraints) {
    const auto mark = [this](const VrexBaseGeometry* number) {
        const auto found = m_carried.find(number);
        if (found != m_carried.end() && found->second.body != nullptr) {
            found->second.body->setSize(0, found->second.body->size(0), true);
        }
    };
    for (const auto& [entity, carried] : m_carried) {
        const auto* const pattern = dynamic_cast<const VrexPattern3D*>(entity);
        if (pattern != nullptr && pattern->getPatternType() == VrexPattern3DType::Linear3D) {
            mark(pattern);
        }
    }
    for (const auto& constraint : constraints) {
        const auto* const dimension = dynamic_cast<const VrexDimension3D*>(constraint.get());
        if (dimension != nullptr && isLength(*dimension)) {
            mark(dimension->getVariable().get());
        }
        const auto* const equality = dynamic_cast<const VrexEqualDimension3D*>(constraint.get());
        if (equality != nullptr && !equality->getDimensions().empty() &&
            equality->getDimensions().front() != nullptr && isLength(*equality->getDimensions().front())) {
            mark(equality->getElement().get());
        }
    }
}

void VrexSolverModel::addCommonValues(const Constraints& constraints) {
    std::unordered_set<const VrexBaseConstraint*> known;
    for (const auto& constraint : constraints) {
        known.insert(constraint.get());
    }
    for (const auto& dimension : dimensionsInEqualities(constraints)) {
        const bool isOwn =
            known.contains(dimension.get()) && dimension->getVariable() == nullptr && !dimension->isRigid();
        if (isOwn && !m_commonValues.contains(dimension.get())) {
            m_commonValues[dimension.get()] = &addNumber(dimension->value(), isLength(*dimension));
        }
    }
}

const VrexSolverShape& VrexSolverModel::addNumber(double value, bool isLength) {
    VrexSolverMobility mobility;
    mobility.sizes[0] = true;
    VrexSolverBody& body = m_system.addHelp({VrexSolverFrame(), mobility});
    body.setSize(0, value, isLength);
    return m_numbers.emplace_back(body, VrexSolverFrame());
}

void VrexSolverModel::addBodies(const std::vector<Geometries>& groups, const Constraints& constraints) {
    const CompletelyFixed fixed(constraints);
    for (const Geometries& group : groups) {
        group.size() > 1 ? addSet(group) : addFree(group.front());
        const auto isFixed = [&fixed](const auto& entity) { return fixed.contains(entity); };
        if (std::any_of(group.begin(), group.end(), isFixed) && m_carriers.back().body != nullptr) {
            m_carriers.back().body->fix();
        }
    }
}

void VrexSolverModel::addSet(const Geometries& entities) {
    std::vector<std::optional<VrexSolverEntity>> known;
    VrexVector3DT<double> middle;
    double count = 0.0;
    for (const auto& entity : entities) {
        known.push_back(VrexSolverEntity::of(*entity));
        if (known.back().has_value()) {
            middle += known.back()->frame.origin;
            count += 1.0;
        }
    }
    const VrexSolverFrame start = VrexSolverFrame::at(count > 0.0 ? middle / count : middle);
    VrexSolverMobility mobility;
    mobility.translations = {true, true, true};
    mobility.rotations = {true, true, true};
    VrexSolverBody& body = m_system.addBody({start, mobility});
    for (std::size_t i = 0; i < entities.size(); ++i) {
        Carried& carried = m_carried[entities[i].get()];
        carried.body = &body;
        if (known[i].has_value()) {
            carried.shape.emplace(body, start.localOf(known[i]->frame), known[i]->sizes[0],
                                  known[i]->sizes[1]);
        }
    }
    m_carriers.push_back({&body, start, entities, true});
}

void VrexSolverModel::addFree(const std::shared_ptr<VrexBaseGeometry>& entity) {
    const auto known = VrexSolverEntity::of(*entity);
    if (!known.has_value()) {
        m_carriers.push_back({nullptr, {}, {entity}, false});
        return;
    }
    VrexSolverBody& body = m_system.addBody({known->frame, known->mobility});
    for (const std::size_t i : {0U, 1U}) {
        body.setSize(i, known->sizes[i], known->isLength[i]);
    }
    Carried& carried = m_carried[entity.get()];
    carried.body = &body;
    carried.shape.emplace(body, VrexSolverFrame());
    m_carriers.push_back({&body, known->frame, {entity}, false});
}

const VrexSolverShape* VrexSolverModel::shape(const VrexBaseGeometry& geometry) const {
    const auto found = m_carried.find(&geometry);
    return found != m_carried.end() && found->second.shape.has_value() ? &*found->second.shape : nullptr;
}

const VrexSolverBody* VrexSolverModel::body(const VrexBaseGeometry& geometry) const {
    const auto found = m_carried.find(&geometry);
    return found != m_carried.end() ? found->second.body : nullptr;
}

VrexVariable VrexSolverModel::value(const VrexGeometryVariable& variable) const {
    const VrexSolverShape* const known = shape(variable);
    return known != nullptr ? known->size(0) : VrexVariable(variable.getValue());
}

bool VrexSolverModel::isNumber(const VrexDimension3D& dimension) const {
    return dimension.getVariable() == nullptr && commonValue(dimension) == nullptr;
}

const VrexSolverShape* VrexSolverModel::commonValue(const VrexDimension3D& dimension) const {
    const auto found = m_commonValues.find(&dimension);
    return found != m_commonValues.end() ? found->second : nullptr;
}

bool VrexSolverModel::isHeldParallel(const VrexBaseGeometry& first, const VrexBaseGeometry& second) const {
    return m_parallel.contains(std::minmax(&first, &second, std::less<>()));
}

void VrexSolverModel::writeBack() const {
    for (const Carrier& carrier : m_carriers) {
        if (carrier.body == nullptr || carrier.body->isFixed() || !carrier.body->hasMoved()) {
            continue;
        }
        if (carrier.isSet) {
            writeSet(carrier);
        } else {
            VrexSolverEntity::write(*carrier.body, *carrier.entities.front());
        }
    }
}

void VrexSolverModel::writeSet(const Carrier& carrier) const {
    const auto motion = carrier.body->frame().motionFrom(carrier.start);
    VrexGeometryTransformation3DVisitor visitor(motion, false);
    for (const auto& entity : carrier.entities) {
        entity->accept(visitor);
    }
}
