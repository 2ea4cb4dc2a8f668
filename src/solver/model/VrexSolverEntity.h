#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "solver/system/VrexSolverBody.h"
#include "solver/system/VrexSolverFrame.h"

class VrexBaseGeometry;

/// What the solver knows about a kind of entity: where one stands, its sizes, and what it may do where
/// nothing holds it.
struct VrexSolverEntity {
    VrexSolverFrame frame;
    VrexSolverMobility mobility;
    std::array<double, 2> sizes{};
    std::array<bool, 2> isLength{true, true};

    /// Empty for a kind that is made of others and has nothing of its own to vary: splines, NURBS, spin and
    /// sweep surfaces.
    static std::optional<VrexSolverEntity> of(VrexBaseGeometry& geometry);
    /// Writes frame and sizes of a body into the entity that is alone on it.
    static void write(const VrexSolverBody& body, VrexBaseGeometry& geometry);
};
