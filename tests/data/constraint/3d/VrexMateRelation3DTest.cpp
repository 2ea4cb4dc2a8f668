#include "data/constraint/3d/VrexMateRelation3D.h"

#include <typeinfo>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SamplesConstraints.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Mates = std::vector<std::shared_ptr<VrexMate3D>>;
using Indices = std::vector<std::uint64_t>;

TEST(VrexMateRelation3D, NewRelationHoldsItsMatesAndNoGeometries) {
    const auto slider = makeSample<VrexSliderMate3D>();
    const auto planar = makeSample<VrexPlanarMate3D>();
    const auto relation = VrexMateRelation3D::create({slider, planar}, {0, 2}, -1.5);
    EXPECT_EQ(relation->type(), VrexConstraint3DType::MateRelation3D);
    EXPECT_EQ(relation->doc(), 1);
    EXPECT_FALSE(relation->isHelpPointSupported() || relation->isHelpParameterSupported());
    EXPECT_THAT(relation->getMates(), ElementsAre(slider, planar));
    EXPECT_THAT(relation->getConstraints(), ElementsAre(slider, planar));
    EXPECT_THAT(relation->getMateParameterIndexs(), ElementsAre(0U, 2U));
    EXPECT_EQ(relation->getRatio(), -1.5);
    EXPECT_THAT(relation->getGeometries(), IsEmpty());
    EXPECT_FALSE(relation->areGeometriesChanged());
}

TEST(VrexMateRelation3D, CanCreateNeedsTwoMatesAndAnIndexOfEach) {
    const auto slider = makeSample<VrexSliderMate3D>();
    const auto planar = makeSample<VrexPlanarMate3D>();
    const auto fastened = makeSample<VrexFastenedMate3D>();
    struct Row {
        Mates mates;
        Indices indices;
        bool expected;
    };
    const Row rows[] = {
        {{slider, planar}, {0, 2}, true},
        {{slider, planar}, {0, 0}, true},
        {{planar, planar}, {1, 1}, true},
        {{slider, planar}, {0, 3}, false},
        {{slider, planar}, {1, 2}, false},
        {{planar, slider}, {0, 2}, false},
        {{slider, fastened}, {0, 0}, false},
        {{slider, planar}, {0, 18446744073709551615U}, false},
        {{nullptr, planar}, {0, 0}, false},
        {{slider, nullptr}, {0, 0}, false},
        {{slider}, {0, 0}, false},
        {{slider, planar}, {0}, false},
        {{slider}, {0}, false},
        {{slider, planar, slider}, {0, 0, 0}, false},
        {{slider, planar, slider}, {0, 0}, false},
        {{slider, planar}, {0, 0, 0}, false},
        {{}, {}, false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(VrexMateRelation3D::canCreate(row.mates, row.indices), row.expected)
            << row.mates.size() << " mates, indices " << testing::PrintToString(row.indices);
    }
}

TEST(VrexMateRelation3D, IndexEqualToTheDimensionCountCannotBeCreated) {
    const auto cylinder = makeSample<VrexCylinderMate3D>();
    ASSERT_EQ(cylinder->getDimensionSize(), 2U);
    EXPECT_TRUE(VrexMateRelation3D::canCreate({cylinder, cylinder}, {1, 1}));
    EXPECT_FALSE(VrexMateRelation3D::canCreate({cylinder, cylinder}, {2, 1}));
    EXPECT_FALSE(VrexMateRelation3D::canCreate({cylinder, cylinder}, {1, 2}));
}

TEST(VrexMateRelation3D, CreateStoresWhatCanCreateRefuses) {
    const auto relation = VrexMateRelation3D::create({nullptr, makeSample<VrexBallMate3D>()}, {9, 8, 7}, 0.0);
    EXPECT_EQ(relation->getMates().size(), 2U);
    EXPECT_EQ(relation->getMates().front(), nullptr);
    EXPECT_THAT(relation->getMateParameterIndexs(), ElementsAre(9U, 8U, 7U));
    EXPECT_THAT(relation->getConstraints(), ElementsAre(relation->getMates().back())) << "nulls are left out";
}

TEST(VrexMateRelation3D, IndicesAndRatioCanBeSet) {
    const auto relation = makeSample<VrexMateRelation3D>();
    relation->setMateParameterIndexs({3});
    relation->setRatio(4.0);
    EXPECT_THAT(relation->getMateParameterIndexs(), ElementsAre(3U));
    EXPECT_EQ(relation->getRatio(), 4.0);
}

TEST(VrexMateRelation3D, UpdateKeepsTheMatesAndTakesIndicesAndRatio) {
    const auto slider = makeSample<VrexSliderMate3D>();
    const auto ball = makeSample<VrexBallMate3D>();
    const auto relation = VrexMateRelation3D::create({slider, ball}, {0, 0}, 1.0);
    relation->updateFrom(makeSample<VrexMateRelation3D>());
    EXPECT_THAT(relation->getMates(), ElementsAre(slider, ball));
    EXPECT_THAT(relation->getMateParameterIndexs(), ElementsAre(1U, 0U))
        << "beyond the own mate's dimensions";
    EXPECT_EQ(relation->getRatio(), -2.5);
    EXPECT_TRUE(relation->areGeometriesChanged());
    relation->updateFrom(relation);
    EXPECT_THAT(relation->getMates(), ElementsAre(slider, ball));
}

TEST(VrexMateRelation3D, FailedUpdateChangesNothing) {
    const auto relation = makeSample<VrexMateRelation3D>();
    const auto before = relation->getMates();
    EXPECT_THROW(relation->updateFrom(before.front()), std::bad_cast);
    EXPECT_EQ(relation->getMates(), before);
    EXPECT_THAT(relation->getMateParameterIndexs(), ElementsAre(1U, 0U));
    EXPECT_EQ(relation->getRatio(), -2.5);
    EXPECT_FALSE(relation->areGeometriesChanged());
}

TEST(VrexMateRelation3D, RestoreBringsBackIndicesAndRatio) {
    const auto relation = makeSample<VrexMateRelation3D>();
    const auto mates = relation->getMates();
    relation->backup();
    relation->setMateParameterIndexs({});
    relation->setRatio(0.0);
    relation->restore();
    EXPECT_EQ(relation->getMates(), mates);
    EXPECT_THAT(relation->getMateParameterIndexs(), ElementsAre(1U, 0U));
    EXPECT_EQ(relation->getRatio(), -2.5);
}

TEST(VrexMateRelation3D, MatesAreSharedAndReleased) {
    auto slider = makeSample<VrexSliderMate3D>();
    const std::weak_ptr<VrexMate3D> gone = slider;
    auto relation = VrexMateRelation3D::create({slider, slider}, {0, 0}, 1.0);
    slider.reset();
    EXPECT_FALSE(gone.expired());
    relation.reset();
    EXPECT_TRUE(gone.expired());
}

} // namespace
