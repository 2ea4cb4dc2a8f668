// What the clone of every kind has to be.

#include <string>
#include <typeinfo>

#include <gtest/gtest.h>

#include "data/3d/VrexConstraintSystemCloner3D.h"
#include "support/CloneInput.h"
#include "support/ObjectClasses.h"
#include "support/ObjectGraph.h"

namespace {

class VrexConstraintSystemCloner3DKinds : public testing::TestWithParam<ObjectKind> {
protected:
    VrexConstraintSystemCloner3DKinds() {
        m_source->setID(17);
        m_source->label() = "seventeen";
        m_source->setDirty(false);
        m_source->backup();
        if (auto* const constraint = dynamic_cast<VrexBaseConstraint*>(m_source.get())) {
            constraint->satisfiedStatus() = VrexConstraintSatisfiedStatus::Satisfied;
            constraint->solveMethodStatus() = VrexSolveMethodStatus::Analytical;
        }
        if (auto* const geometry = dynamic_cast<VrexBaseGeometry*>(m_source.get())) {
            geometry->status() = VrexGeometryStatus::Welldefined;
            geometry->setChangeStatus(VrexGeometryChangeStatus::Changed);
        }
        if (auto* const geometry = dynamic_cast<VrexGeometry3D*>(m_source.get())) {
            geometry->biasData() = VrexGeometryBiasData3D{{{7, 0.125}}, {{8, 0.25}, {9, 0.375}}};
        }
    }

    std::shared_ptr<VrexBaseObject> m_source = GetParam().makeSample();
    CloneInput m_input{m_source};
};

INSTANTIATE_TEST_SUITE_P(Kinds, VrexConstraintSystemCloner3DKinds, testing::ValuesIn(concreteObjectKinds()),
                         nameOfKind);

TEST_P(VrexConstraintSystemCloner3DKinds, CloneIsEqualFieldByFieldAndSharesNoObject) {
    const VrexConstraintSystemCloner3D cloner(m_input.geometries, m_input.constraints);
    const auto clone = cloner.findClone(m_source);
    ASSERT_NE(clone, nullptr);
    const VrexBaseObject& cloned = *clone;
    EXPECT_EQ(typeid(cloned), *GetParam().type);
    const ObjectGraph sources(std::vector{m_source});
    const ObjectGraph clones(std::vector{clone});
    EXPECT_EQ(clones.text(), sources.text());
    EXPECT_EQ(clones.countShared(sources), 0U);
    for (const auto& object : sources.objects()) {
        EXPECT_NE(cloner.findClone(object), nullptr);
    }
    EXPECT_EQ(cloner.getGeometries().size() + cloner.getConstraints().size(), sources.objects().size());
}

TEST_P(VrexConstraintSystemCloner3DKinds, CloneHasNoSnapshotAndTheSourceKeepsItsOwn) {
    const VrexConstraintSystemCloner3D cloner(m_input.geometries, m_input.constraints);
    const auto clone = cloner.findClone(m_source);
    clone->setDirty(true);
    clone->restore();
    EXPECT_TRUE(clone->isDirty());
    m_source->setDirty(true);
    m_source->restore();
    EXPECT_FALSE(m_source->isDirty());
}

TEST_P(VrexConstraintSystemCloner3DKinds, CloneOutlivesTheSource) {
    auto cloner = std::make_unique<VrexConstraintSystemCloner3D>(m_input.geometries, m_input.constraints);
    const std::weak_ptr<VrexBaseObject> source = m_source;
    const auto clone = cloner->findClone(m_source);
    const auto text = ObjectGraph(std::vector{m_source}).text();
    cloner.reset();
    m_source.reset();
    m_input.geometries.clear();
    m_input.constraints.clear();
    EXPECT_TRUE(source.expired());
    EXPECT_EQ(ObjectGraph(std::vector{clone}).text(), text);
}

} // namespace
