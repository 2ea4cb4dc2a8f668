#pragma once

#include <memory>
#include <string>
#include <vector>

#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "data/serialization/3d/VrexSystem3DSerializer.h"
#include "support/WrittenDocuments.h"
#include "tolvbase/LumoJson.h"

/// The lists of a small system, and its document.
struct JsonDocuments {
    std::vector<std::shared_ptr<VrexGeometry3D>> geometries;
    std::vector<std::shared_ptr<VrexGeometryVariable>> variables = {};
    std::vector<std::shared_ptr<VrexConstraint3D>> constraints = {};
    std::vector<std::shared_ptr<VrexBaseEquation>> equations = {};
    VrexTransform3D transform = {};
    std::vector<std::shared_ptr<VrexGeometry3D>> referenceGeometries = {};

    VrexImmutableSystem3D system() const {
        return {geometries, variables, constraints, equations, 1e-6, 1e-8, transform, referenceGeometries};
    }
    LumoJson json(const VrexSerializationParameters& parameters = {}) const {
        LumoJson document;
        serialize(system(), document, parameters);
        keepWritten(document.dump());
        return document;
    }
    /// The last object of an array, as text.
    std::string last(const char* array, const VrexSerializationParameters& parameters = {}) const {
        const LumoJson document = json(parameters);
        return document[array].back().dump();
    }
};
