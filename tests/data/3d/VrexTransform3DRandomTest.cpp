#include <algorithm>
#include <cstdint>
#include <memory>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/3d/VrexTransform3D.h"
#include "data/geometry/3d/VrexPoint3D.h"

namespace {

using Entity = std::shared_ptr<VrexGeometry3D>;
using Variable = std::shared_ptr<VrexGeometryVariable>;

/// A drag as its operations are defined: records alone, looked through from end to end.
struct TransformModel {
    std::vector<VrexDragTransform3D> transformations;
    std::vector<VrexDragParameter3D> parameters;
    std::vector<VrexDragVariable> variables;

    VrexDragTransform3D* find(const Entity& geometry) {
        const auto found =
            std::find_if(transformations.rbegin(), transformations.rend(),
                         [&](const VrexDragTransform3D& record) { return record.geometry == geometry; });
        return found != transformations.rend() ? &*found : nullptr;
    }
    void apply(const Entity& geometry, const VrexTransformMatrix3D& matrix) {
        VrexDragTransform3D* const record = find(geometry);
        if (record == nullptr) {
            transformations.push_back({geometry, matrix});
        } else {
            record->matrix = matrix * record->matrix;
        }
    }
    std::vector<double> values(const Entity& geometry) const {
        std::vector<double> found;
        for (const auto& record : parameters) {
            if (record.geometry == geometry) {
                found.push_back(record.value);
            }
        }
        return found;
    }
    bool isTransformed(const Variable& variable) const {
        return std::any_of(variables.begin(), variables.end(),
                           [&](const VrexDragVariable& record) { return record.variable == variable; });
    }
    /// The same with each object replaced, where the maps name it.
    TransformModel renamed(const VrexTransform3D::GeometryMap& geometryMap,
                           const VrexTransform3D::VariableMap& variableMap) const {
        TransformModel copy = *this;
        for (auto& record : copy.transformations) {
            record.geometry =
                geometryMap.contains(record.geometry) ? geometryMap.at(record.geometry) : record.geometry;
        }
        for (auto& record : copy.parameters) {
            record.geometry =
                geometryMap.contains(record.geometry) ? geometryMap.at(record.geometry) : record.geometry;
        }
        for (auto& record : copy.variables) {
            record.variable =
                variableMap.contains(record.variable) ? variableMap.at(record.variable) : record.variable;
        }
        return copy;
    }
};

class RandomTransform : public testing::Test {
protected:
    RandomTransform() {
        for (int i = 0; i < 8; ++i) {
            entities.push_back(VrexPoint3D::create(1.0, 2.0, 3.0));
            variables.push_back(VrexGeometryVariable::create(1.0));
        }
    }
    std::uint64_t any(std::uint64_t count) { return engine() % count; }
    /// The first half is what the operations work on; clones are about the other half.
    const Entity& anyEntity() { return entities[any(4)]; }
    double anyNumber() { return static_cast<double>(any(9)); }
    /// Whole numbers, so that products are exact; sometimes no rigid motion.
    VrexTransformMatrix3D anyMatrix() {
        VrexTransformMatrix3D matrix =
            any(2) == 0 ? VrexTransformMatrix3D::translate({anyNumber(), anyNumber(), anyNumber()})
                        : VrexTransformMatrix3D({{{0, -1, 0, 0}, {1, 0, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}});
        if (any(8) == 0) {
            matrix[3][any(4)] = 3.0;
        }
        return matrix;
    }
    void move() {
        const Entity& geometry = anyEntity();
        const VrexTransformMatrix3D matrix = anyMatrix();
        const bool good = matrix.isTransformMatrix();
        if (any(3) != 0) {
            ASSERT_EQ(transform.applyTransformation(geometry, matrix), good);
            good ? model.apply(geometry, matrix) : void();
            return;
        }
        VrexDragTransform3D* const record = model.find(geometry);
        ASSERT_EQ(transform.setTransformation(geometry, matrix), record != nullptr);
        if (record != nullptr) {
            record->matrix = matrix;
        }
    }
    void replaceAll() {
        std::vector<VrexDragTransform3D> records;
        for (std::uint64_t i = any(5); i > 0; --i) {
            records.push_back({anyEntity(), anyMatrix()});
        }
        const bool good = std::all_of(records.begin(), records.end(),
                                      [](const auto& record) { return record.matrix.isTransformMatrix(); });
        ASSERT_EQ(transform.setTransforms(records), good);
        if (good) {
            model.transformations = records;
        }
    }
    void drive() {
        std::vector<VrexDragParameter3D> records;
        for (std::uint64_t i = any(4); i > 0; --i) {
            records.emplace_back(anyEntity(), VrexDragParameter3DType::Radius3D, anyNumber());
        }
        transform.setDragParameters(records);
        model.parameters.insert(model.parameters.end(), records.begin(), records.end());
        const Variable& variable = variables[any(4)];
        const double value = anyNumber();
        ASSERT_TRUE(transform.applyVariableTransform(variable, value));
        model.variables.push_back({variable, value});
    }
    void step() {
        const std::uint64_t choice = any(20);
        if (choice == 0) {
            transform.clear();
            model = TransformModel();
        } else if (choice < 4) {
            replaceAll();
        } else if (choice < 8) {
            drive();
        } else {
            move();
        }
    }

    static void expectSameRecords(const VrexTransform3D& real, const TransformModel& expected) {
        ASSERT_EQ(real.transformations().size(), expected.transformations.size());
        for (std::size_t i = 0; i < expected.transformations.size(); ++i) {
            ASSERT_EQ(real.transformations()[i].geometry, expected.transformations[i].geometry);
            ASSERT_TRUE(real.transformations()[i].matrix == expected.transformations[i].matrix);
        }
        ASSERT_EQ(real.transformParameters().size(), expected.parameters.size());
        for (std::size_t i = 0; i < expected.parameters.size(); ++i) {
            ASSERT_EQ(real.transformParameters()[i].geometry, expected.parameters[i].geometry);
            ASSERT_EQ(real.transformParameters()[i].value, expected.parameters[i].value);
        }
        ASSERT_EQ(real.variableTransformations().size(), expected.variables.size());
        for (std::size_t i = 0; i < expected.variables.size(); ++i) {
            ASSERT_EQ(real.variableTransformations()[i].variable, expected.variables[i].variable);
            ASSERT_EQ(real.variableTransformations()[i].value, expected.variables[i].value);
        }
    }
    static void expectSameEntity(const VrexTransform3D& real, TransformModel& expected,
                                 const Entity& geometry) {
        const VrexDragTransform3D* const record = expected.find(geometry);
        VrexTransformMatrix3D matrix;
        ASSERT_EQ(real.getTransformMatrixForGeometry(geometry, matrix), record != nullptr);
        if (record != nullptr) {
            ASSERT_TRUE(matrix == record->matrix);
            ASSERT_TRUE(real.getTransformForGeometry(geometry).matrix == record->matrix);
        }
        std::vector<double> values;
        for (const auto& parameter : real.getDragParametersForGeometry(geometry)) {
            values.push_back(parameter.value);
        }
        const std::vector<double> driven = expected.values(geometry);
        ASSERT_EQ(values, driven);
        ASSERT_EQ(real.isTransformed(geometry), record != nullptr || !driven.empty());
        ASSERT_EQ(std::ranges::count(real.getTransformedGeoms(), geometry), record != nullptr ? 1 : 0);
        ASSERT_EQ(std::ranges::count(real.getDragParamGeoms(), geometry), driven.empty() ? 0 : 1);
    }
    void expectSame(const VrexTransform3D& real, TransformModel expected) const {
        expectSameRecords(real, expected);
        for (const auto& geometry : entities) {
            expectSameEntity(real, expected, geometry);
        }
        for (const auto& variable : variables) {
            ASSERT_EQ(real.isTransformed(variable), expected.isTransformed(variable));
        }
        ASSERT_EQ(real.isEmpty(), expected.transformations.empty() && expected.parameters.empty() &&
                                      expected.variables.empty());
    }
    /// Some, all or none of the objects become others.
    void expectSameClone() {
        VrexTransform3D::GeometryMap geometryMap;
        VrexTransform3D::VariableMap variableMap;
        const std::uint64_t names = any(3);
        for (std::size_t i = 0; i < 4; ++i) {
            if (names == 2 || (names == 1 && any(2) == 0)) {
                geometryMap.emplace(entities[i], entities[4 + i]);
                variableMap.emplace(variables[i], variables[4 + i]);
            }
        }
        expectSame(*transform.clone(geometryMap, variableMap), model.renamed(geometryMap, variableMap));
    }

    std::mt19937_64 engine{5};
    VrexTransform3D transform;
    TransformModel model;
    std::vector<Entity> entities;
    std::vector<Variable> variables;
};

TEST_F(RandomTransform, DragsAndTheirClonesFollowTheNaiveModel) {
    for (int i = 0; i < 5'000 && !HasFatalFailure(); ++i) {
        step();
        expectSame(transform, model);
        expectSameClone();
    }
}

} // namespace
