#pragma once

#include <memory>
#include <vector>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"

/// What has to be given to a cloner so that it clones one object: all that its constraint and the constraints
/// in it bind, and these constraints before the one that is made of them.
struct CloneInput {
    std::vector<std::shared_ptr<VrexBaseGeometry>> geometries;
    std::vector<std::shared_ptr<VrexBaseConstraint>> constraints;

    explicit CloneInput(const std::shared_ptr<VrexBaseObject>& object) {
        if (auto geometry = std::dynamic_pointer_cast<VrexBaseGeometry>(object)) {
            geometries.push_back(geometry);
        } else {
            add(std::dynamic_pointer_cast<VrexBaseConstraint>(object));
        }
    }

private:
    void add(const std::shared_ptr<VrexBaseConstraint>& constraint) {
        geometries.insert(geometries.end(), constraint->getGeometries().begin(),
                          constraint->getGeometries().end());
        for (const auto& part : constraint->getConstraints()) {
            add(part);
        }
        constraints.push_back(constraint);
    }
};
