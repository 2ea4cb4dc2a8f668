#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "data/VrexVector2DT.h"
#include "data/VrexVector3DT.h"

class VrexConstraint3D;

/// What a constraint says about where it touches one of its entities.
struct VrexContactHelp {
    /// The help point, else the point at the help parameter.
    std::optional<VrexVector3DT<double>> point;
    /// The help parameter of what has parameters that begin at a place of its own: an ellipse, a spline, a
    /// NURBS surface, an evaluated shape, what is drawn from those. A circle's begin anywhere.
    std::optional<VrexVector2DT<double>> parameter;
    bool isHeld = false; ///< Whether the parameter keeps its value.
    VrexConstraint3D* constraint = nullptr;
    std::uint32_t number = 0;

    /// Of geometry 1 or 2. The constraint outlives the help.
    static VrexContactHelp of(VrexConstraint3D& constraint, std::uint32_t number);
    /// Whether the constraint asks to hold a help parameter that it lacks, or one that cannot be held.
    static bool asksTooMuch(VrexConstraint3D& constraint);

    /// For one or two parameters of a point of contact.
    std::array<bool, 2> areFree(std::size_t count) const { return {!isHeld, !isHeld && count == 2}; }
    /// Sets the first `count` numbers of the help parameter.
    void write(const std::array<double, 2>& values, std::size_t count) const;
};
