#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexTangency3D.h"
#include "solver/JacobianChecks.h"
#include "solver/Mechanism.h"
#include "solver/NearestPoints.h"
#include "solver/RandomEntities.h"
#include "solver/VrexSolver3D.h"

namespace {

using enum VrexGeometry3DType;
using nsNearest::Vector;

struct Row {
    VrexGeometry3DType first;
    std::vector<VrexGeometry3DType> seconds;
};

const Row ROWS[] = {
    {LINE, {SPHERE, CYLINDER, CONE, TORUS, CIRCLE, ELLIPSE}},
    {PLANE, {SPHERE, CYLINDER, CONE, TORUS, CIRCLE, ELLIPSE}},
    {SPHERE, {SPHERE, CYLINDER, CONE, TORUS, CIRCLE, ELLIPSE}},
    {CYLINDER, {CYLINDER, CONE, TORUS}},
    {CONE, {CONE, TORUS}},
    {TORUS, {TORUS}},
    {CIRCLE, {CIRCLE, ELLIPSE, CYLINDER, CONE, TORUS}},
    {ELLIPSE, {ELLIPSE, CYLINDER, CONE, TORUS}},
};

std::shared_ptr<VrexTangency3D> tangencyOf(const std::shared_ptr<VrexGeometry3D>& first,
                                           const std::shared_ptr<VrexGeometry3D>& second) {
    return VrexTangency3D::create(first, second, VrexGeometryComponentType::UNKNOWN,
                                  VrexGeometryComponentType::UNKNOWN);
}

template <class Check>
void forEachPair(const Check& check) {
    for (const Row& row : ROWS) {
        for (const auto second : row.seconds) {
            SCOPED_TRACE(std::string(getEnumeratorText(row.first)) + " " + getEnumeratorText(second));
            check(row.first, second);
        }
    }
}

/// The directions in which the points run at a place, by differences.
std::vector<Vector> tangentsAt(const nsNearest::Points& points, const double* place) {
    constexpr double step = 1e-5;
    std::vector<Vector> result;
    for (std::size_t i = 0; i < points.ranges.size(); ++i) {
        std::vector<double> ahead(place, place + points.ranges.size());
        std::vector<double> behind = ahead;
        ahead[i] += step;
        behind[i] -= step;
        const Vector way = points.at(ahead.data()) - points.at(behind.data());
        result.push_back(way / way.magnitude());
    }
    return result;
}

/// The greatest volume that tangents of both span: zero where all lie in one plane, for two curves in one
/// line.
double spread(const std::vector<Vector>& first, const std::vector<Vector>& second) {
    if (first.size() == 1 && second.size() == 1) {
        return first[0].crossProduct(second[0]).magnitude();
    }
    const auto& plane = first.size() == 2 ? first : second;
    const auto& others = first.size() == 2 ? second : first;
    double most = 0.0;
    for (const Vector& other : others) {
        most = std::max(most, std::abs(plane[0].crossProduct(plane[1]).dotProduct(other)));
    }
    return most;
}

TEST(VrexTangencyResiduals, DerivativesMatchCentralDifferences) {
    RandomShapes random;
    forEachPair([&random](auto first, auto second) {
        for (int i = 0; i < 2; ++i) {
            const auto one = nsRandomEntities::make(first, random);
            const auto other = nsRandomEntities::make(second, random);
            expectJacobianMatches(i % 2 == 0 ? tangencyOf(one, other) : tangencyOf(other, one), {one, other},
                                  {}, 1e-5);
        }
    });
}

TEST(VrexTangencyResiduals, TouchesWithoutCrossing) {
    RandomShapes random;
    forEachPair([&random](auto first, auto second) {
        {
            Mechanism mechanism;
            const auto [one, other] = nsNearest::makeApart(first, second, random);
            mechanism.add(one);
            mechanism.add(other);
            mechanism.bind(tangencyOf(one, other));
            const auto report = VrexSolver3D().solve({mechanism.component()});
            ASSERT_TRUE(report.components[0].remarks.empty());
            ASSERT_TRUE(report.isConverged());
            const auto points1 = nsNearest::pointsOf(*one);
            const auto points2 = nsNearest::pointsOf(*other);
            const auto contact = nsNearest::nearest(points1, points2);
            // In the valley of a contact the search ends early; the place is as good as the root of that.
            EXPECT_LT(contact.distance, 1e-5);
            EXPECT_LT(spread(tangentsAt(points1, contact.place.data()),
                             tangentsAt(points2, contact.place.data() + points1.ranges.size())),
                      1e-2);
        }
    });
}

} // namespace
