#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <functional>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexQuaternionT.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "support/ScalarSamples.h"

// The composites of VrexVariable against the same formulas by the scalar's own operators, written out here.

namespace {

using Variable = VrexVariable;
using Vector = VrexVector3DT<Variable>;
using Quaternion = VrexQuaternionT<Variable>;
using Variables = std::vector<Variable>;
using nsScalarSamples::entriesOf;
using nsScalarSamples::sameBits;

/// The two results may differ by this share of the entry ...
constexpr double RELATIVE = 1e-12;
/// ... or, where terms cancel, by some roundings of these, which operands of at most 2 keep small.
constexpr double CANCELLED = 1e-14;

struct Parts {
    Variable s, x, y, z;
};

Variable plainDot(const Vector& a, const Vector& b) { return a.x() * b.x() + a.y() * b.y() + a.z() * b.z(); }

Variables plainCross(const Vector& a, const Vector& b) {
    return {a.y() * b.z() - b.y() * a.z(), b.x() * a.z() - a.x() * b.z(), b.y() * a.x() - b.x() * a.y()};
}

Variable plainMagnitudeSquared(const Vector& v) { return v.x() * v.x() + v.y() * v.y() + v.z() * v.z(); }

Variable plainDistance(const Vector& a, const Vector& b) {
    const Variable x = a.x() - b.x();
    const Variable y = a.y() - b.y();
    const Variable z = a.z() - b.z();
    return sqrt(x * x + y * y + z * z);
}

Variables plainNormalized(const Vector& v) {
    const Variable m = sqrt(plainMagnitudeSquared(v));
    if (!(m.value() > 0.0)) {
        return {Variable(0.0), Variable(0.0), Variable(0.0)};
    }
    return {v.x() / m, v.y() / m, v.z() / m};
}

Parts plainProduct(const Parts& a, const Parts& b) {
    return {a.s * b.s - (a.x * b.x + a.y * b.y + a.z * b.z), b.x * a.s + a.x * b.s + (a.y * b.z - b.y * a.z),
            b.y * a.s + a.y * b.s + (b.x * a.z - a.x * b.z), b.z * a.s + a.z * b.s + (b.y * a.x - b.x * a.y)};
}

Variables plainRotated(const Vector& v, const Parts& q, bool useReciprocal) {
    const Parts turned = plainProduct(q, {Variable(0.0), v.x(), v.y(), v.z()});
    const Parts conjugate{q.s, q.x * -1.0, q.y * -1.0, q.z * -1.0};
    if (!useReciprocal) {
        const Parts result = plainProduct(turned, conjugate);
        return {result.x, result.y, result.z};
    }
    const Variable r = 1.0 / (q.s * q.s + (q.x * q.x + q.y * q.y + q.z * q.z));
    const Parts result =
        plainProduct(turned, {conjugate.s * r, conjugate.x * r, conjugate.y * r, conjugate.z * r});
    return {result.x, result.y, result.z};
}

Variables plainCartesian(const Variable& p, const Variable& a) {
    const Variable sp = sin(p);
    return {sp * cos(a), sp * sin(a), cos(p)};
}

Variables plainBasis(const Variable& p, const Variable& a) {
    const Variable cp = cos(p);
    const Variable sp = sin(p);
    const Variable ca = cos(a);
    const Variable sa = sin(a);
    return {cp * ca * ca + sa * sa,
            cp * ca * sa - ca * sa,
            -sp * ca,
            cp * ca * sa - ca * sa,
            cp * sa * sa + ca * ca,
            -sp * sa,
            sp * ca,
            sp * sa,
            cp};
}

Variables listed(const Vector& v) { return {v.x(), v.y(), v.z()}; }
Variables listed(const Quaternion& q) { return {q.scalar(), q.i(), q.j(), q.k()}; }
Variables listed(const Parts& q) { return {q.s, q.x, q.y, q.z}; }

Vector vectorAt(const Variables& v, std::size_t i) { return {v[i], v[i + 1], v[i + 2]}; }
Parts partsAt(const Variables& v, std::size_t i) { return {v[i], v[i + 1], v[i + 2], v[i + 3]}; }
Quaternion quaternionAt(const Variables& v, std::size_t i) {
    return Quaternion::makeFromScalarAndVector(v[i], vectorAt(v, i + 1));
}

struct Composite {
    std::string name;
    std::function<Variables(const Variables&)> inOneStep;
    std::function<Variables(const Variables&)> byOperators;
};

constexpr std::size_t OPERANDS = 8;

std::vector<Composite> vectorComposites() {
    using V = const Variables&;
    return {
        {"dot", [](V v) { return Variables{vectorAt(v, 0).dotProduct(vectorAt(v, 3))}; },
         [](V v) { return Variables{plainDot(vectorAt(v, 0), vectorAt(v, 3))}; }},
        {"dot with itself", [](V v) { return Variables{vectorAt(v, 0).dotProduct(vectorAt(v, 0))}; },
         [](V v) { return Variables{plainDot(vectorAt(v, 0), vectorAt(v, 0))}; }},
        {"cross", [](V v) { return listed(vectorAt(v, 0).crossProduct(vectorAt(v, 3))); },
         [](V v) { return plainCross(vectorAt(v, 0), vectorAt(v, 3)); }},
        {"squared magnitude", [](V v) { return Variables{vectorAt(v, 0).magnitudeSquared()}; },
         [](V v) { return Variables{plainMagnitudeSquared(vectorAt(v, 0))}; }},
        {"magnitude", [](V v) { return Variables{vectorAt(v, 0).magnitude()}; },
         [](V v) { return Variables{sqrt(plainMagnitudeSquared(vectorAt(v, 0)))}; }},
        {"distance", [](V v) { return Variables{vectorAt(v, 0).distanceTo(vectorAt(v, 3))}; },
         [](V v) { return Variables{plainDistance(vectorAt(v, 0), vectorAt(v, 3))}; }},
        {"normalised", [](V v) { return listed(normalized(vectorAt(v, 0), 0.0)); },
         [](V v) { return plainNormalized(vectorAt(v, 0)); }},
        {"unit vector", [](V v) { return listed(Vector::sphericalAnglesToCartesian(v[0], v[1])); },
         [](V v) { return plainCartesian(v[0], v[1]); }},
        {"basis",
         [](V v) {
             const auto [x, y, z] = Vector::getRotatedBasisVectors(v[0], v[1]);
             return Variables{x.x(), x.y(), x.z(), y.x(), y.y(), y.z(), z.x(), z.y(), z.z()};
         },
         [](V v) { return plainBasis(v[0], v[1]); }},
    };
}

std::vector<Composite> quaternionComposites() {
    using V = const Variables&;
    return {
        {"product", [](V v) { return listed(quaternionAt(v, 0) * quaternionAt(v, 4)); },
         [](V v) { return listed(plainProduct(partsAt(v, 0), partsAt(v, 4))); }},
        {"squared norm", [](V v) { return Variables{quaternionAt(v, 0).normSquared()}; },
         [](V v) { return Variables{v[0] * v[0] + (v[1] * v[1] + v[2] * v[2] + v[3] * v[3])}; }},
        {"rotated", [](V v) { return listed(Quaternion::rotate(vectorAt(v, 4), quaternionAt(v, 0), false)); },
         [](V v) { return plainRotated(vectorAt(v, 4), partsAt(v, 0), false); }},
        {"rotated by reciprocal",
         [](V v) { return listed(Quaternion::rotate(vectorAt(v, 4), quaternionAt(v, 0), true)); },
         [](V v) { return plainRotated(vectorAt(v, 4), partsAt(v, 0), true); }},
    };
}

std::vector<Composite> composites() {
    std::vector<Composite> all = vectorComposites();
    for (Composite& composite : quaternionComposites()) {
        all.push_back(std::move(composite));
    }
    return all;
}

/// Gives the keys of operand i.
using Keys = std::function<std::vector<std::uint64_t>(std::size_t i, std::mt19937& random)>;

struct Layout {
    std::string name;
    Keys keys;
};

std::vector<std::uint64_t> counting(std::uint64_t first, std::size_t count, std::uint64_t step = 1) {
    std::vector<std::uint64_t> keys;
    for (std::size_t i = 0; i < count; ++i) {
        keys.push_back(first + i * step);
    }
    return keys;
}

std::vector<std::uint64_t> shuffled(std::vector<std::uint64_t> keys, std::size_t count,
                                    std::mt19937& random) {
    std::shuffle(keys.begin(), keys.end(), random);
    keys.resize(count);
    return keys;
}

std::vector<Layout> layouts() {
    return {
        {"one key each", [](std::size_t i, std::mt19937&) { return counting(i, 1); }},
        {"the same keys", [](std::size_t, std::mt19937&) { return counting(3, 7); }},
        {"the same keys on the heap", [](std::size_t, std::mt19937&) { return counting(3, 14); }},
        {"many of the same keys", [](std::size_t, std::mt19937&) { return counting(3, 90); }},
        {"disjoint keys", [](std::size_t i, std::mt19937&) { return counting(10 * i, 4); }},
        {"disjoint keys with equal low bits",
         [](std::size_t i, std::mt19937&) { return counting(64 * i, 3, 1024); }},
        {"permuted keys",
         [](std::size_t, std::mt19937& random) { return shuffled(counting(0, 9), 9, random); }},
        {"overlapping keys", [](std::size_t i, std::mt19937&) { return counting(3 * i, 5); }},
        {"random keys",
         [](std::size_t, std::mt19937& random) { return shuffled(counting(0, 12), random() % 13, random); }},
        {"many random keys",
         [](std::size_t, std::mt19937& random) {
             return shuffled(counting(0, 200, 7), random() % 150, random);
         }},
        {"no keys", [](std::size_t, std::mt19937&) { return counting(0, 0); }},
        {"two groups", [](std::size_t i, std::mt19937&) { return i < 4 ? counting(0, 4) : counting(10, 3); }},
        {"every other constant",
         [](std::size_t i, std::mt19937&) { return counting(5 * i, i % 2 == 0 ? 0 : 3); }},
    };
}

Variables makeOperands(const Layout& layout, std::mt19937& random) {
    std::uniform_real_distribution<double> number(-2.0, 2.0);
    Variables operands;
    for (std::size_t i = 0; i < OPERANDS; ++i) {
        Variable operand(number(random));
        for (const std::uint64_t key : layout.keys(i, random)) {
            operand.derivatives().set(key, number(random));
        }
        operands.push_back(operand);
    }
    return operands;
}

/// Values, keys and the entries that are not finite must be the same bit for bit.
void expectSameKeysAndClose(const Variable& actual, const Variable& expected) {
    EXPECT_TRUE(sameBits(actual.value(), expected.value())) << actual.value() << " and " << expected.value();
    const auto a = entriesOf(actual);
    const auto e = entriesOf(expected);
    ASSERT_EQ(a.size(), e.size());
    double largest = 1.0;
    for (const auto& entry : e) {
        largest = std::max(largest, std::isfinite(entry.second) ? std::fabs(entry.second) : 0.0);
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        EXPECT_EQ(a[i].first, e[i].first) << "key " << i;
        if (!std::isfinite(e[i].second)) {
            EXPECT_TRUE(sameBits(a[i].second, e[i].second)) << "entry " << i;
        } else {
            EXPECT_NEAR(a[i].second, e[i].second,
                        std::max(RELATIVE * std::fabs(e[i].second), CANCELLED * largest))
                << "entry " << i;
        }
    }
}

bool areFinite(const Variables& variables) {
    return std::all_of(variables.begin(), variables.end(),
                       [](const Variable& variable) { return std::isfinite(variable.value()); });
}

/// Temporaries are numbered through the process, so that two runs number them differently.
std::string withoutNumbers(std::string log) {
    const std::string prefix = "tmp_var_";
    for (std::size_t at = log.find(prefix); at != std::string::npos; at = log.find(prefix, at + 1)) {
        const std::size_t first = at + prefix.size();
        std::size_t last = first;
        while (last < log.size() && std::isdigit(static_cast<unsigned char>(log[last])) != 0) {
            ++last;
        }
        log.erase(first, last - first);
    }
    return log;
}

} // namespace

TEST(VrexVectorsInOneStep, AgreeWithTheOperatorsForEveryLayoutOfKeys) {
    std::mt19937 random(20240607);
    for (const Layout& layout : layouts()) {
        for (const Composite& composite : composites()) {
            SCOPED_TRACE(composite.name + ", " + layout.name);
            for (int repetition = 0; repetition < 20; ++repetition) {
                const Variables operands = makeOperands(layout, random);
                const Variables actual = composite.inOneStep(operands);
                const Variables expected = composite.byOperators(operands);
                ASSERT_EQ(actual.size(), expected.size());
                for (std::size_t i = 0; i < actual.size(); ++i) {
                    expectSameKeysAndClose(actual[i], expected[i]);
                }
            }
        }
    }
}

TEST(VrexVectorsInOneStep, ValuesAreThoseOfTheDoublesBitForBit) {
    std::mt19937 random(7);
    for (const Layout& layout : layouts()) {
        for (const Composite& composite : composites()) {
            const Variables operands = makeOperands(layout, random);
            Variables constants;
            for (const Variable& operand : operands) {
                constants.emplace_back(operand.value());
            }
            const Variables actual = composite.inOneStep(operands);
            const Variables expected = composite.byOperators(constants);
            for (std::size_t i = 0; i < actual.size(); ++i) {
                EXPECT_TRUE(sameBits(actual[i].value(), expected[i].value())) << composite.name;
            }
        }
    }
}

TEST(VrexVectorsInOneStep, LogsAreThoseOfTheOperators) {
    std::mt19937 random(11);
    for (const Layout& layout : layouts()) {
        for (const Composite& composite : composites()) {
            for (unsigned logging = 1; logging < 1U << OPERANDS; logging = logging * 2 + random() % 2) {
                Variables operands = makeOperands(layout, random);
                for (std::size_t i = 0; i < OPERANDS; ++i) {
                    if ((logging >> i & 1) != 0) {
                        operands[i].enableLog(std::to_string(i).c_str());
                    }
                }
                const Variables actual = composite.inOneStep(operands);
                const Variables expected = composite.byOperators(operands);
                for (std::size_t i = 0; i < actual.size(); ++i) {
                    SCOPED_TRACE(composite.name + ", " + layout.name);
                    expectSameKeysAndClose(actual[i], expected[i]);
                    EXPECT_EQ(withoutNumbers(actual[i].convertLogToString()),
                              withoutNumbers(expected[i].convertLogToString()));
                }
            }
        }
    }
}

TEST(VrexVectorsInOneStep, InfiniteAndHugeOperandsGiveTheOperatorsDerivatives) {
    std::mt19937 random(13);
    std::size_t notFinite = 0;
    const std::vector<double> specials{std::numeric_limits<double>::infinity(),
                                       -std::numeric_limits<double>::infinity(),
                                       std::numeric_limits<double>::quiet_NaN(), 1e300};
    for (const Layout& layout : layouts()) {
        for (const Composite& composite : composites()) {
            SCOPED_TRACE(composite.name + ", " + layout.name);
            for (std::size_t position = 0; position < OPERANDS; ++position) {
                for (const double special : specials) {
                    Variables operands = makeOperands(layout, random);
                    operands[position].setValue(special);
                    const Variables actual = composite.inOneStep(operands);
                    const Variables expected = composite.byOperators(operands);
                    notFinite += areFinite(expected) ? 0 : 1;
                    ASSERT_EQ(actual.size(), expected.size());
                    for (std::size_t i = 0; i < actual.size(); ++i) {
                        expectSameKeysAndClose(actual[i], expected[i]);
                    }
                }
            }
        }
    }
    EXPECT_GT(notFinite, 1000U);
}
