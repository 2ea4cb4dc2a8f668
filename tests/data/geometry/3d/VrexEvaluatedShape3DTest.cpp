#include "data/geometry/3d/VrexEvaluatedShape3D.h"

#include <utility>

#include <gtest/gtest.h>

#include "data/geometry/VrexGeometryVariable.h"
#include "support/LogCapture.h"

namespace {

constexpr const char* NAMES[] = {"u", "v"};
constexpr std::size_t X = VrexEvaluatedShape3D::X, Y = VrexEvaluatedShape3D::Y, Z = VrexEvaluatedShape3D::Z;

VrexVariableDescriptor named(const char* name, double value) {
    return {VrexGeometryVariable::create(value), 0, name};
}

/// The value of a text at u = 2, v = 3 and one number for each descriptor.
double valueOf(const VrexEvaluatedShape3D& shape, std::size_t coordinate) {
    std::vector<double> values{2.0, 3.0};
    for (const auto& descriptor : shape.descriptors()) {
        values.push_back(descriptor.getValue());
    }
    return shape.getParser(coordinate).evaluate(values);
}

TEST(VrexEvaluatedShape3D, NewShapeHasNoTextsAndNoVariables) {
    const VrexEvaluatedShape3D shape(NAMES);
    EXPECT_TRUE(shape.descriptors().empty());
    EXPECT_EQ(shape.getParameter(0), nullptr);
    EXPECT_EQ(shape.getParameter(1), nullptr);
    for (const std::size_t coordinate : {X, Y, Z}) {
        EXPECT_EQ(shape.getText(coordinate), "");
        EXPECT_TRUE(shape.getParser(coordinate).getVariables().empty());
    }
}

TEST(VrexEvaluatedShape3D, FirstTextMakesTheVariables) {
    VrexEvaluatedShape3D shape(NAMES);
    EXPECT_TRUE(shape.setText(Y, "u * v"));
    ASSERT_NE(shape.getParameter(0), nullptr);
    EXPECT_EQ(shape.getParameter(0)->name, "u");
    EXPECT_EQ(shape.getParameter(0)->value(), 0.0);
    EXPECT_EQ(shape.getParameter(1)->name, "v");
    EXPECT_EQ(shape.getParser(Y).getVariables().size(), 2U);
    EXPECT_EQ(valueOf(shape, Y), 6.0);
}

TEST(VrexEvaluatedShape3D, FurtherTextsShareTheVariables) {
    VrexEvaluatedShape3D shape(NAMES);
    ASSERT_TRUE(shape.setText(X, "u"));
    ASSERT_TRUE(shape.setText(Z, "v"));
    EXPECT_EQ(shape.getParser(X).getVariables(), shape.getParser(Z).getVariables());
    EXPECT_EQ(shape.getParser(X).getVariables()[0], shape.getParameter(0));
}

TEST(VrexEvaluatedShape3D, VariablesAreTheOwnOnesThenThoseOfTheDescriptors) {
    VrexEvaluatedShape3D shape(NAMES);
    shape.setDescriptors({named("a", 5.0), named("b", 7.0)});
    ASSERT_TRUE(shape.setText(X, "u + v + a + b"));
    const auto& variables = shape.getParser(X).getVariables();
    ASSERT_EQ(variables.size(), 4U);
    const std::pair<const char*, double> expected[] = {{"u", 0.0}, {"v", 0.0}, {"a", 5.0}, {"b", 7.0}};
    for (std::size_t i = 0; i < variables.size(); ++i) {
        EXPECT_EQ(variables[i]->name, expected[i].first);
        EXPECT_EQ(variables[i]->value(), expected[i].second);
    }
}

TEST(VrexEvaluatedShape3D, NewDescriptorsBindTheTextsAnew) {
    VrexEvaluatedShape3D shape(NAMES);
    EXPECT_FALSE(shape.setText(X, "u + a")) << "a is not known yet";
    const auto former = shape.getParameter(0);
    const LogCapture log;
    shape.setDescriptors({named("a", 5.0)});
    EXPECT_TRUE(log.lines().empty()) << "texts that are empty are not parsed";
    EXPECT_NE(shape.getParameter(0), former);
    EXPECT_EQ(valueOf(shape, X), 7.0);
}

TEST(VrexEvaluatedShape3D, NameThatTheDescriptorsLoseIsToldAtOnce) {
    VrexEvaluatedShape3D shape(NAMES);
    ASSERT_TRUE(shape.set("u", "u + a", "v", {named("a", 5.0)}));
    const LogCapture log;
    shape.setDescriptors({});
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].text, "Expression parse error: undefined parameter \"a\"");
    EXPECT_EQ(valueOf(shape, Y), 2.0) << "and counts as 0";
    EXPECT_EQ(log.lines().size(), 1U) << "told once";
}

TEST(VrexEvaluatedShape3D, SetReplacesDescriptorsAndTexts) {
    VrexEvaluatedShape3D shape(NAMES);
    ASSERT_TRUE(shape.setText(X, "u"));
    EXPECT_TRUE(shape.set("a", "u * a", "v * a", {named("a", 5.0)}));
    EXPECT_EQ(valueOf(shape, X), 5.0);
    EXPECT_EQ(valueOf(shape, Y), 10.0);
    EXPECT_EQ(valueOf(shape, Z), 15.0);
}

TEST(VrexEvaluatedShape3D, SetTakesItsOwnTextsInAnotherOrder) {
    VrexEvaluatedShape3D shape(NAMES);
    ASSERT_TRUE(shape.set("1", "2", "3", {}));
    EXPECT_TRUE(shape.set(shape.getText(Z), shape.getText(X), shape.getText(Y), shape.descriptors()));
    EXPECT_EQ(shape.getText(X), "3");
    EXPECT_EQ(shape.getText(Y), "1");
    EXPECT_EQ(shape.getText(Z), "2");
}

TEST(VrexEvaluatedShape3D, SetStopsAtTheFirstRefusedText) {
    VrexEvaluatedShape3D shape(NAMES);
    ASSERT_TRUE(shape.set("1", "2", "3", {}));
    const LogCapture log;
    EXPECT_FALSE(shape.set("a", "u +", "v", {named("a", 5.0)}));
    EXPECT_EQ(log.lines().size(), 1U) << "the former texts are not parsed again";
    EXPECT_EQ(shape.descriptors().size(), 1U);
    EXPECT_EQ(shape.getText(X), "a");
    EXPECT_EQ(shape.getText(Y), "u +");
    EXPECT_EQ(shape.getText(Z), "3");
    EXPECT_EQ(shape.getParser(Z).getVariables().size(), 2U) << "still the former ones";
}

TEST(VrexEvaluatedShape3D, CopyHasVariablesAndTreesOfItsOwn) {
    VrexEvaluatedShape3D shape(NAMES);
    ASSERT_TRUE(shape.set("u + a", "v", "a", {named("a", 5.0)}));
    shape.getParameter(0)->setValue(100.0);
    const VrexEvaluatedShape3D copy(shape);
    EXPECT_NE(copy.getParameter(0), shape.getParameter(0));
    EXPECT_EQ(valueOf(copy, X), 7.0);
    EXPECT_EQ(copy.getParameter(0)->value(), 2.0);
    EXPECT_EQ(shape.getParameter(0)->value(), 100.0) << "evaluating the copy leaves the original alone";
    EXPECT_EQ(copy.getText(Y), "v");
}

TEST(VrexEvaluatedShape3D, CopyOfANewShapeIsNew) {
    const VrexEvaluatedShape3D shape(NAMES);
    EXPECT_EQ(VrexEvaluatedShape3D(shape).getParameter(0), nullptr);
}

TEST(VrexEvaluatedShape3D, MovedShapeKeepsItsVariables) {
    VrexEvaluatedShape3D source(NAMES);
    ASSERT_TRUE(source.set("u", "v", "u + v", {}));
    const auto variable = source.getParameter(0);
    VrexEvaluatedShape3D target(NAMES);
    target = std::move(source);
    EXPECT_EQ(target.getParameter(0), variable);
    EXPECT_EQ(valueOf(target, Z), 5.0);
}

TEST(VrexEvaluatedShape3D, ChangedDescriptorIsAChange) {
    const auto first = VrexGeometryVariable::create(1.0);
    const auto second = VrexGeometryVariable::create(1.0);
    VrexEvaluatedShape3D shape(NAMES);
    EXPECT_FALSE(shape.isChanged(0.0));
    shape.setDescriptors({{first, 0, "a"}, {second, 0, "b"}});
    second->setValue(2.0);
    EXPECT_FALSE(shape.isChanged(0.0)) << "without snapshots";
    second->backup();
    second->setValue(2.5);
    EXPECT_FALSE(shape.isChanged(0.5));
    EXPECT_TRUE(shape.isChanged(0.25));
}

} // namespace
