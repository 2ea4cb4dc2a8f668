#include "data/constraint/3d/VrexInstance3D.h"

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <utility>

#include "data/3d/VrexAssigner3D.h"
#include "data/3d/VrexGeometryTransformation3DVisitor.h"
#include "data/VrexLog.h"
#include "data/VrexObjectBody.h"
#include "data/VrexStandardTexts.h"
#include "data/constraint/3d/VrexCompatibleGeometries.h"
#include "data/constraint/3d/VrexInstanceParts.h"
#include "data/constraint/3d/VrexSharedPointsAside.h"
#include "data/geometry/3d/VrexArrayPattern3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPattern3D.h"

VREX_OBJECT_BODY(VrexInstance3D)

namespace {

using Vector = VrexVector3DT<double>;
using Matrix = VrexTransformMatrix3D;
using Patterns = std::vector<std::shared_ptr<VrexPattern3D>>;

constexpr double AXIS_TOLERANCE = 1e-14;

double coefficientAt(const std::vector<std::int32_t>& coefficients, std::size_t index) {
    if (index >= coefficients.size()) {
        VREX_RAISE(std::out_of_range, nsStandardTexts::VECTOR_SUBSCRIPT);
    }
    return coefficients[index];
}

const VrexPattern3D& patternAt(const Patterns& patterns, std::size_t index) {
    if (patterns[index] == nullptr) {
        VREX_RAISE(std::out_of_range, "The array pattern has a null pattern.");
    }
    return *patterns[index];
}

const VrexLine3D& axisOf(const VrexPattern3D& pattern) {
    if (pattern.getAxisLine() == nullptr) {
        VREX_RAISE(std::out_of_range, "A pattern of the array pattern has no axis line.");
    }
    return *pattern.getAxisLine();
}

Vector directionOf(const VrexPattern3D& pattern) {
    return axisOf(pattern).getDirection().makeNormalized(AXIS_TOLERANCE, Vector::ZERO());
}

/// The turn by `angle` about the axis of the pattern.
Matrix makeTurn(const VrexPattern3D& pattern, double angle) {
    const Vector o = axisOf(pattern).getOrigin();
    const auto q = VrexQuaternionT<double>::makeFromAngleAndAxis(angle, directionOf(pattern), AXIS_TOLERANCE);
    return Matrix::translate(o) * Matrix::makeFromQuaternion(q) * Matrix::translate(-o);
}

} // namespace

bool VrexInstance3D::canCreate(const std::shared_ptr<VrexArrayPattern3D>& arrayPattern,
                               const std::shared_ptr<VrexGeometry3D>& first,
                               const std::shared_ptr<VrexGeometry3D>& second,
                               const std::vector<std::int32_t>& coefficients) {
    return arrayPattern != nullptr && first != nullptr && second != nullptr &&
           coefficients.size() == arrayPattern->getPatterns().size() && areCompatible(first, second);
}

std::shared_ptr<VrexInstance3D> VrexInstance3D::create(
    const std::shared_ptr<VrexGeometry3D>& first, const std::shared_ptr<VrexGeometry3D>& second,
    const std::shared_ptr<VrexArrayPattern3D>& arrayPattern, const std::vector<std::int32_t>& coefficients) {
    if (!canCreate(arrayPattern, first, second, coefficients)) {
        return nullptr;
    }
    return VrexObjectAccess::make<VrexInstance3D>(first, second, arrayPattern, coefficients);
}

VrexInstance3D::VrexInstance3D(const std::shared_ptr<VrexGeometry3D>& first,
                               const std::shared_ptr<VrexGeometry3D>& second,
                               const std::shared_ptr<VrexArrayPattern3D>& arrayPattern,
                               const std::vector<std::int32_t>& coefficients)
    : VrexConstraint3D(VrexConstraint3DType::Instance3D), m_coefficients(coefficients) {
    addArguments(first, second, arrayPattern);
}

int VrexInstance3D::doc() const { return geometry(1)->dof() - 1; }

std::shared_ptr<VrexArrayPattern3D> VrexInstance3D::getArrayPattern() const {
    return std::dynamic_pointer_cast<VrexArrayPattern3D>(geometry(3));
}

bool VrexInstance3D::checkData() const {
    return canCreate(getArrayPattern(), geometry(1), geometry(2), m_coefficients);
}

VrexTransformMatrix3D VrexInstance3D::getInstanceTransform() const {
    const auto arrayPattern = getArrayPattern();
    const Patterns& patterns = arrayPattern->getPatterns();
    Vector offset;
    std::size_t k = 0; // Kept: of coefficients and of patterns, and not advanced by a circular one.
    std::optional<std::size_t> circular;
    for (std::size_t i = 0; i < patterns.size(); ++i) {
        const VrexPattern3D& pattern = patternAt(patterns, i);
        if (pattern.getPatternType() == VrexPattern3DType::Circular3D) {
            circular = k;
            continue;
        }
        offset += directionOf(pattern) * pattern.getValue() * coefficientAt(m_coefficients, k);
        ++k;
    }
    if (!circular.has_value()) {
        return Matrix::translate(offset);
    }
    const VrexPattern3D& pattern = patternAt(patterns, *circular);
    const double angle = coefficientAt(m_coefficients, *circular) * pattern.getValue();
    return makeTurn(pattern, angle) * Matrix::translate(offset);
}

void VrexInstance3D::satisfy() {
    const auto first = geometry(1);
    const auto second = geometry(2);
    const auto untouched = nsInstanceParts::reachableFrom(first);
    const VrexSharedPointsAside::Shared shared(untouched.begin(), untouched.end());
    const VrexAssigner3D assign;
    auto pairs = nsInstanceParts::pairsOf(first, second);
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        const auto [source, target] = pairs[i];
        if (source != nullptr && target != nullptr && !shared.contains(target)) {
            const VrexSharedPointsAside aside(*target, shared);
            assign(*source, *target);
        }
    }
    VrexGeometryTransformation3DVisitor visitor(VrexTransformation3DT<double>(getInstanceTransform()), false);
    visitor.markGeometriesVisited(untouched);
    visitor.markGeometriesVisited(nsInstanceParts::unpairedOf(std::move(pairs)));
    second->accept(visitor);
}
