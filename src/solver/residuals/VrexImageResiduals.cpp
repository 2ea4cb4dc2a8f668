#include "solver/residuals/VrexImageResiduals.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "data/constraint/3d/VrexInstance3D.h"
#include "data/constraint/3d/VrexSymmetry3D.h"
#include "data/geometry/3d/VrexArrayPattern3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "solver/model/VrexSolverBuilder.h"
#include "solver/model/VrexSolverDirections.h"
#include "solver/residuals/VrexImagePairs.h"

namespace {

using Vector = VrexSolverShape::Vector;
using Map = std::function<Vector(const Vector&)>;

/// Where points go, and directions.
struct Motion {
    Map point;
    Map direction;
};

/// What of an entity an image has to match.
struct Parts {
    int placeRows = 3; ///< 1 across a plane, 2 across a line, 3 for a point.
    bool hasDirection = true;
    bool hasSide = false; ///< Which way the direction points can be seen.
    bool hasSecondDirection = false;
    std::size_t lengths = 0;
    bool hasAngle = false;
    bool hasHand = false; ///< It has no mirror image of its own make.
};

std::optional<Parts> partsOf(VrexGeometry3DType type) {
    switch (type) {
        using enum VrexGeometry3DType;
    case POINT:
        return Parts{3, false, false, false, 0, false};
    case LINE:
        return Parts{2, true, false, false, 0, false};
    case PLANE:
        return Parts{1, true, false, false, 0, false};
    case CYLINDER:
        return Parts{2, true, false, false, 1, false};
    case SPHERE:
        return Parts{3, false, false, false, 1, false};
    case CIRCLE:
        return Parts{3, true, false, false, 1, false};
    case CONE:
        return Parts{3, true, true, false, 0, true};
    case ELLIPSE:
        return Parts{3, true, false, true, 2, false};
    case TORUS:
        return Parts{3, true, false, false, 2, false};
    case EVAL_CURVE:
    case EVAL_SURFACE:
    case RIGID_SET:
        return Parts{3, true, true, true, 0, false, true};
    default:
        return std::nullopt;
    }
}

/// An entity, its image, and how the one becomes the other.
struct Pair {
    const VrexSolverShape* first;
    const VrexSolverShape* second;
    Motion motion;
    Parts parts;
};

std::optional<Pair> pairOf(const VrexSolverBuilder& builder, const nsImagePairs::Pair& entities,
                           const Motion& motion) {
    const auto parts = partsOf(entities.first->type());
    const VrexSolverShape* const first = builder.shape(entities.first);
    const VrexSolverShape* const second = builder.shape(entities.second);
    return parts.has_value() && first != nullptr && second != nullptr
               ? std::optional(Pair{first, second, motion, *parts})
               : std::nullopt;
}

/// Empty where the two are not of the same make, or a part of theirs has no place of its own.
std::vector<Pair> pairsOf(const VrexSolverBuilder& builder, const std::shared_ptr<VrexGeometry3D>& first,
                          const std::shared_ptr<VrexGeometry3D>& second, const Motion& motion) {
    std::vector<Pair> pairs;
    for (const auto& entities : nsImagePairs::of(first, second).value_or(std::vector<nsImagePairs::Pair>())) {
        const auto pair = pairOf(builder, entities, motion);
        if (!pair.has_value()) {
            return {};
        }
        pairs.push_back(*pair);
    }
    return pairs;
}

/// Rows that come one behind the other.
class RowList {
public:
    explicit RowList(double length) : m_length(length) {}

    double length() const { return m_length; }
    void add(std::size_t count, VrexSolverBuilder::Rows rows) {
        m_parts.push_back({count, std::move(rows)});
        m_count += count;
    }
    void giveTo(VrexSolverBuilder& builder, bool haveSpares) const {
        const auto rows = [parts = m_parts](VrexVariable* values) {
            for (const Part& part : parts) {
                part.rows(values);
                values += part.count;
            }
        };
        haveSpares ? builder.addWithSpares(m_count, rows) : builder.add(m_count, rows);
    }

private:
    struct Part {
        std::size_t count;
        VrexSolverBuilder::Rows rows;
    };

    double m_length;
    std::vector<Part> m_parts;
    std::size_t m_count = 0;
};

/// The difference along the axes of the second entity in which it has a place.
void addPlace(RowList& list, const Pair& pair) {
    const auto rowCount = static_cast<std::size_t>(pair.parts.placeRows);
    list.add(rowCount, [pair, length = list.length()](VrexVariable* rows) {
        const Vector shift = (pair.motion.point(pair.first->origin()) - pair.second->origin()) / length;
        switch (pair.parts.placeRows) {
        case 1:
            rows[0] = pair.second->axisZ().dotProduct(shift);
            break;
        case 2:
            rows[0] = pair.second->axisX().dotProduct(shift);
            rows[1] = pair.second->axisY().dotProduct(shift);
            break;
        default:
            rows[0] = shift.x();
            rows[1] = shift.y();
            rows[2] = shift.z();
        }
    });
}

void addDirection(RowList& list, const Pair& pair, double sense) {
    list.add(2, [pair, sense](VrexVariable* rows) {
        const Vector image = pair.motion.direction(pair.first->axisZ()) * sense;
        rows[0] = nsSolverDirections::tilt(*pair.second, image, 0);
        rows[1] = nsSolverDirections::tilt(*pair.second, image, 1);
    });
}

double cosineOf(const Vector& a, const Vector& b) { return a.dotProduct(b).value(); }

/// The angle, about the second entity's own axis, between its first axis and the image of the other's.
void addSecondDirection(RowList& list, const Pair& pair, double sense) {
    list.add(1, [pair, sense](VrexVariable* rows) {
        const Vector image = pair.motion.direction(pair.first->axisX()) * sense;
        rows[0] = nsSolverDirections::angleAbout(pair.second->axisZ(), pair.second->axisX(), image);
    });
}

double signOf(double size) { return size < 0.0 ? -1.0 : 1.0; }

/// A cone of negative aperture opens against its axis.
double sideOf(const Pair& pair) {
    return signOf(pair.first->sizeValue(0)) * signOf(pair.second->sizeValue(0));
}

/// Sizes agree in amount and keep their signs.
void addSize(RowList& list, const Pair& pair, std::size_t index, double unit) {
    const double sense = signOf(pair.first->sizeValue(index)) * signOf(pair.second->sizeValue(index));
    list.add(1, [first = pair.first, second = pair.second, index, sense, unit](VrexVariable* rows) {
        rows[0] = (first->size(index) - second->size(index) * sense) / unit;
    });
}

/// `alignment` is what directions that have no side follow.
void addImage(RowList& list, const Pair& pair, VrexConstraintAlignment alignment) {
    addPlace(list, pair);
    if (pair.parts.hasDirection) {
        const double cosine = cosineOf(pair.motion.direction(pair.first->axisZ()), pair.second->axisZ());
        addDirection(list, pair,
                     pair.parts.hasSide ? sideOf(pair) : nsSolverDirections::senseOf(alignment, cosine));
    }
    if (pair.parts.hasSecondDirection) {
        const double cosine = cosineOf(pair.motion.direction(pair.first->axisX()), pair.second->axisX());
        addSecondDirection(list, pair, nsSolverDirections::senseOf(alignment, cosine));
    }
    for (std::size_t i = 0; i < pair.parts.lengths; ++i) {
        addSize(list, pair, i, list.length());
    }
    if (pair.parts.hasAngle) {
        addSize(list, pair, 0, 1.0);
    }
}

/// Pairs that hang together, as members of sets do, say some things more than once.
void addImages(VrexSolverBuilder& builder, const std::vector<Pair>& pairs,
               VrexConstraintAlignment alignment) {
    RowList list(builder.length());
    for (const Pair& pair : pairs) {
        addImage(list, pair, alignment);
    }
    list.giveTo(builder, pairs.size() > 1);
}

Motion mirrorAt(const VrexSolverShape& plane) {
    Motion motion;
    motion.direction = [&plane](const Vector& v) {
        const Vector normal = plane.axisZ();
        return v - normal * (v.dotProduct(normal) * 2.0);
    };
    motion.point = [&plane](const Vector& p) {
        const Vector normal = plane.axisZ();
        return p - normal * ((p - plane.origin()).dotProduct(normal) * 2.0);
    };
    return motion;
}

/// So many steps of a pattern.
struct Step {
    const VrexSolverShape* axis;
    const VrexSolverShape* pattern;
    double count;

    VrexVariable amount() const { return pattern->size(0) * count; }
};

/// All linear steps, then the turn, if there is one.
struct Steps {
    std::vector<Step> linear;
    std::optional<Step> circular;

    Vector turned(const Vector& v) const {
        if (!circular.has_value()) {
            return v;
        }
        // Rodrigues' formula.
        const Vector axis = circular->axis->axisZ();
        const VrexVariable angle = circular->amount();
        const VrexVariable cosine = cos(angle);
        return v * cosine + axis.crossProduct(v) * sin(angle) + axis * (axis.dotProduct(v) * (1.0 - cosine));
    }
    Vector moved(Vector p) const {
        for (const Step& step : linear) {
            p += step.axis->axisZ() * step.amount();
        }
        if (!circular.has_value()) {
            return p;
        }
        const Vector center = circular->axis->origin();
        return turned(p - center) + center;
    }
};

std::optional<Step> stepOf(const VrexSolverBuilder& builder, const std::shared_ptr<VrexPattern3D>& pattern,
                           double count) {
    const VrexSolverShape* const shape = builder.shape(pattern);
    const VrexSolverShape* const axis = shape != nullptr ? builder.shape(pattern->getAxisLine()) : nullptr;
    return axis != nullptr ? std::optional(Step{axis, shape, count}) : std::nullopt;
}

/// Coefficients and patterns are matched as the instance itself does: a circular pattern takes the
/// coefficient, and stands for the pattern, of the place that the linear ones before it have counted to.
std::optional<Steps> stepsOf(const VrexSolverBuilder& builder, const VrexInstance3D& instance) {
    const auto& patterns = instance.getArrayPattern()->getPatterns();
    const std::vector<std::int32_t>& coefficients = instance.getCoefficients();
    Steps steps;
    std::optional<std::size_t> circular;
    std::size_t k = 0;
    for (const auto& pattern : patterns) {
        if (pattern != nullptr && pattern->getPatternType() == VrexPattern3DType::Circular3D) {
            circular = k;
            continue;
        }
        const auto step = stepOf(builder, pattern, coefficients[k++]);
        if (!step.has_value()) {
            return std::nullopt;
        }
        steps.linear.push_back(*step);
    }
    if (circular.has_value()) {
        steps.circular = stepOf(builder, patterns[*circular], coefficients[*circular]);
        return steps.circular.has_value() ? std::optional(steps) : std::nullopt;
    }
    return steps;
}

} // namespace

void nsImageResiduals::add(VrexSolverBuilder& builder, VrexSymmetry3D& symmetry) {
    const VrexSolverShape* const plane = builder.shape(symmetry.symmetryPlane());
    if (plane == nullptr) {
        builder.refuse("A symmetry needs a plane.");
        return;
    }
    const auto pairs = pairsOf(builder, symmetry.geometry(1), symmetry.geometry(2), mirrorAt(*plane));
    const bool hasHand =
        std::any_of(pairs.begin(), pairs.end(), [](const Pair& pair) { return pair.parts.hasHand; });
    if (pairs.empty() || hasHand) {
        builder.refuse("A mirror image is supported between two entities of the same make only.");
        return;
    }
    addImages(builder, pairs, symmetry.alignment());
}

void nsImageResiduals::add(VrexSolverBuilder& builder, VrexInstance3D& instance) {
    const auto steps = instance.checkData() ? stepsOf(builder, instance) : std::nullopt;
    if (!steps.has_value()) {
        builder.refuse("An instance needs an array pattern with axis lines, and a coefficient for each.");
        return;
    }
    Motion motion;
    motion.point = [steps = *steps](const Vector& p) { return steps.moved(p); };
    motion.direction = [steps = *steps](const Vector& v) { return steps.turned(v); };
    const auto pairs = pairsOf(builder, instance.geometry(1), instance.geometry(2), motion);
    if (pairs.empty()) {
        builder.refuse("An instance is supported between two entities of the same make only.");
        return;
    }
    addImages(builder, pairs, VrexConstraintAlignment::Positive);
}

bool nsImageResiduals::addSame(VrexSolverBuilder& builder, const std::shared_ptr<VrexGeometry3D>& first,
                               const std::shared_ptr<VrexGeometry3D>& second) {
    const Map identity = [](const Vector& v) { return v; };
    const auto pairs = pairsOf(builder, first, second, {identity, identity});
    addImages(builder, pairs, VrexConstraintAlignment::Current);
    return !pairs.empty();
}
