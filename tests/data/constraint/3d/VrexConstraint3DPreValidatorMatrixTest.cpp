// Every kind of constraint with every single, pair and triple of kinds of geometry, every component and every
// fixation, against the model beside this file.

#include "data/constraint/3d/VrexConstraint3DPreValidator.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/base/VrexDefaultToleranceGetter.h"
#include "data/base/VrexLogRecorder.h"
#include "data/constraint/3d/PreValidatorModel.h"
#include "support/AnyGeometry.h"
#include "support/LogCapture.h"

namespace {

using Component = VrexGeometryComponentType;
using Geometries = VrexConstraint3DPreValidator::Geometries;
using Kind = VrexConstraint3DType;
using Type = VrexGeometry3DType;
using nsPreValidatorModel::Types;
using nsPreValidatorModel::Verdict;

constexpr int TYPES = 20;
constexpr int LONGEST = 4;
constexpr int COMPONENTS_BEFORE_EXTERIOR = 8;

/// Geometries of every kind, one for each place, each with an identifier of its own.
class Pool {
public:
    Pool() {
        for (int type = 0; type < TYPES; ++type) {
            for (int place = 0; place < LONGEST; ++place) {
                const auto id = static_cast<std::uint64_t>(1 + type * LONGEST + place);
                m_geometries.push_back(AnyGeometry::create(static_cast<Type>(type), id));
            }
        }
    }
    Geometries pick(const Types& types) const {
        Geometries picked;
        for (const Type type : types) {
            picked.push_back(m_geometries[static_cast<std::size_t>(type) * LONGEST + picked.size()]);
        }
        return picked;
    }
    void expectUntouched() const {
        const AnyGeometry fresh(Type::POINT);
        for (std::size_t i = 0; i < m_geometries.size(); ++i) {
            const auto& geometry = *m_geometries[i];
            EXPECT_EQ(geometry.getID(), i + 1);
            EXPECT_EQ(geometry.type(), static_cast<Type>(i / LONGEST));
            EXPECT_FALSE(geometry.isDirty());
            EXPECT_TRUE(geometry.isEqualParameters(fresh));
            EXPECT_EQ(m_geometries[i].use_count(), 1);
        }
    }

private:
    std::vector<std::shared_ptr<AnyGeometry>> m_geometries;
};

std::string describe(const Types& types) {
    std::string text = "types";
    for (const Type type : types) {
        text.append(" ").append(std::to_string(static_cast<int>(type)));
    }
    return text;
}

class VrexConstraint3DPreValidatorMatrix : public testing::Test {
protected:
    /// Runs `check` with a validator whose recorder is new, and compares answer, recorder and log.
    template <class Check>
    void expectVerdict(const Verdict& expected, Check check) {
        VrexLogRecorder recorder(7);
        const LogCapture log;
        const VrexConstraint3DPreValidator validator(m_tolerances, recorder);
        EXPECT_EQ(check(validator), expected.accepted());
        EXPECT_EQ(recorder.getErrorCode(), expected.code);
        EXPECT_EQ(recorder.getErrorMessage(), nsPreValidatorModel::recorded(expected));
        EXPECT_STREQ(recorder.getLogMessage(), "");
        ASSERT_EQ(log.lines().size(), expected.accepted() ? 0U : 1U);
        if (!expected.accepted()) {
            EXPECT_EQ(log.lines()[0].level, expected.level);
            EXPECT_EQ(log.lines()[0].text, recorder.getErrorMessage());
            EXPECT_EQ(log.lines()[0].file, "VrexConstraint3DPreValidator.cpp");
        }
    }
    void expectAgreement(Kind kind, const Types& types, Component component1 = Component::UNKNOWN,
                         Component component2 = Component::UNKNOWN) {
        const Geometries geometries = m_pool.pick(types);
        const Geometries before = geometries;
        expectVerdict(nsPreValidatorModel::constraint(kind, types, component1, component2),
                      [&](const VrexConstraint3DPreValidator& validator) {
                          return validator.preCheckConstraint3DType(geometries, kind, component1, component2);
                      });
        EXPECT_EQ(geometries, before);
        if (HasFailure()) {
            FAIL() << "kind " << static_cast<int>(kind) << ", " << describe(types) << ", components "
                   << static_cast<int>(component1) << ", " << static_cast<int>(component2);
        }
    }
    /// Calls `use` for each tuple of `count` types.
    template <class Use>
    void forEachTuple(std::size_t count, Use use, const Types& start = {}) {
        if (start.size() == count) {
            use(start);
            return;
        }
        for (int type = 0; type < TYPES && !HasFatalFailure(); ++type) {
            Types longer = start;
            longer.push_back(static_cast<Type>(type));
            forEachTuple(count, use, longer);
        }
    }
    void expectAgreementOfAllTuples(std::size_t count) {
        for (int kind = -2; kind <= 43; ++kind) {
            forEachTuple(count, [&](const Types& types) { expectAgreement(static_cast<Kind>(kind), types); });
        }
        m_pool.expectUntouched();
    }

    VrexDefaultToleranceGetter m_tolerances;
    Pool m_pool;
};

TEST_F(VrexConstraint3DPreValidatorMatrix, ListsHaveTheirSizes) {
    std::size_t kinds = 0;
    for (const auto& list : nsPreValidatorModel::listSizes()) {
        EXPECT_EQ(list.parsed, list.stated) << list.kind;
        const std::string names = list.kind;
        kinds += 1 + static_cast<std::size_t>(std::count(names.begin(), names.end(), ' '));
    }
    EXPECT_EQ(kinds, 35U);
}

TEST_F(VrexConstraint3DPreValidatorMatrix, NoGeometry) { expectAgreementOfAllTuples(0); }
TEST_F(VrexConstraint3DPreValidatorMatrix, EveryGeometry) { expectAgreementOfAllTuples(1); }
TEST_F(VrexConstraint3DPreValidatorMatrix, EveryPair) { expectAgreementOfAllTuples(2); }
TEST_F(VrexConstraint3DPreValidatorMatrix, EveryTriple) { expectAgreementOfAllTuples(3); }

TEST_F(VrexConstraint3DPreValidatorMatrix, FourGeometriesAreTooMany) {
    for (int kind = -2; kind <= 43; ++kind) {
        expectAgreement(static_cast<Kind>(kind), {Type::LINE, Type::POINT, Type::LINE, Type::PLANE});
    }
}

TEST_F(VrexConstraint3DPreValidatorMatrix, EveryPairOfComponentsOfEveryPair) {
    for (const Kind kind : {Kind::Distance3D, Kind::Incidence3D, Kind::Tangency3D, Kind::EqualRadius3D}) {
        for (int components = 0; components < COMPONENTS_BEFORE_EXTERIOR * COMPONENTS_BEFORE_EXTERIOR;
             ++components) {
            forEachTuple(2, [&](const Types& types) {
                expectAgreement(kind, types, static_cast<Component>(components / COMPONENTS_BEFORE_EXTERIOR),
                                static_cast<Component>(components % COMPONENTS_BEFORE_EXTERIOR));
            });
        }
    }
    m_pool.expectUntouched();
}

TEST_F(VrexConstraint3DPreValidatorMatrix, ExteriorOfEveryFirstGeometryThrows) {
    VrexLogRecorder recorder(7);
    const VrexConstraint3DPreValidator validator(m_tolerances, recorder);
    for (const Kind kind : {Kind::Distance3D, Kind::Incidence3D, Kind::Tangency3D}) {
        forEachTuple(2, [&](const Types& types) {
            EXPECT_THROW(validator.preCheckConstraint3DType(m_pool.pick(types), kind, Component::EXTERIOR,
                                                            Component::UNKNOWN),
                         std::out_of_range)
                << describe(types);
        });
    }
    EXPECT_TRUE(recorder.isNoError());
}

TEST_F(VrexConstraint3DPreValidatorMatrix, ComponentsOfOtherKindsPlayNoPart) {
    for (const Component component : {Component::MAJOR, Component::APEX, Component::EXTERIOR}) {
        forEachTuple(2, [&](const Types& types) {
            expectAgreement(Kind::Angle3D, types, component, Component::EXTERIOR);
            expectAgreement(Kind::EqualCurvature3D, types, Component::EXTERIOR, component);
        });
    }
    expectAgreement(Kind::PlanarAngle3D, {Type::LINE, Type::PLANE, Type::TORUS}, Component::EXTERIOR,
                    Component::EXTERIOR);
}

TEST_F(VrexConstraint3DPreValidatorMatrix, ComponentWithEveryType) {
    for (int component = 0; component < COMPONENTS_BEFORE_EXTERIOR; ++component) {
        forEachTuple(1, [&](const Types& types) {
            const auto asked = static_cast<Component>(component);
            expectVerdict(nsPreValidatorModel::component(types[0], asked),
                          [&](const VrexConstraint3DPreValidator& validator) {
                              return validator.preCheckConstraintComponent3DType(types[0], asked);
                          });
        });
    }
}

TEST_F(VrexConstraint3DPreValidatorMatrix, ConversionOfEveryComponent) {
    const LogCapture log;
    for (int component = 0; component < COMPONENTS_BEFORE_EXTERIOR; ++component) {
        forEachTuple(1, [&](const Types& types) {
            const auto asked = static_cast<Component>(component);
            const Type expected = nsPreValidatorModel::converted(types[0], asked);
            Type out = Type::PATTERN;
            EXPECT_EQ(VrexConstraint3DPreValidator::convertComponentToGeomType(types[0], asked, out),
                      expected);
            EXPECT_EQ(out, expected);
        });
    }
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(VrexConstraint3DPreValidatorMatrix, EveryFixationOfEveryGeometry) {
    for (int kind = -2; kind <= 9; ++kind) {
        forEachTuple(1, [&](const Types& types) {
            const auto asked = static_cast<VrexFixation3DType>(kind);
            const Geometries geometries = m_pool.pick(types);
            expectVerdict(nsPreValidatorModel::fixation(asked, types[0]),
                          [&](const VrexConstraint3DPreValidator& validator) {
                              return validator.preCheckFixation3DType(geometries, asked);
                          });
        });
    }
    m_pool.expectUntouched();
}

} // namespace
