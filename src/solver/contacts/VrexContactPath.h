#pragma once

#include <array>
#include <functional>
#include <vector>

#include "solver/contacts/VrexContactHelp.h"
#include "solver/contacts/VrexSolverCore.h"
#include "solver/model/VrexSolverBuilder.h"
#include "solver/system/VrexSolverShape.h"

/// Where a point of contact is, and the directions of unit length in which its parameters take it.
struct VrexSolverContact {
    VrexSolverShape::Vector point;
    std::array<VrexSolverShape::Vector, 2> tangents;
    /// How fast the parameters take it there: zero at the apex of a cone, which is an end.
    VrexVariable weight = 1.0;
};

/// A point that runs on an entity, by no, one or two parameters of its own.
struct VrexContactPath {
    struct Range {
        double low;
        double high;
    };

    std::function<VrexSolverContact()> contact;
    VrexSolverBody* body = nullptr; ///< Its sizes are the parameters; null without any.
    std::vector<Range> ranges;      ///< Of each parameter, where to look for a start.
    bool isPlaced = false;          ///< A help says where it starts.

    std::size_t parameterCount() const { return ranges.size(); }
    bool isFree(std::size_t parameter) const { return body->mobility().sizes[parameter]; }
};

/// Ways to run, and places to start.
namespace nsContactPaths {

/// On a point, a line, a circle, an ellipse or a cone, and on what `nsParametricPath` knows; offsets are left
/// out. `near` is a place that the run along a line starts from. The path is placed at the help parameter, or
/// next to the help point. Where a help parameter has moved in the end it is written back.
///
///   line     o + t z
///   circle   c + R (cos t x + sin t y)
///   ellipse  c + a cos t x + b sin t y
///   cone     apex + v (cos(alpha) z + sin(alpha) (cos u x + sin u y)), v = w^2 / length
VrexContactPath on(VrexSolverBuilder& builder, const VrexSolverCore& core, const VrexVector3DT<double>& near,
                   const VrexContactHelp& help);

/// Sets all parameters of the paths, but for those that are placed, to where, of a grid of places, `cost` is
/// least.
void scan(const std::vector<VrexContactPath>& paths, const std::function<double()>& cost);

/// Moves the free parameters to where `rows` vanish, or as near as that is, from where they are: Gauss-Newton
/// with the bodies at rest.
void settle(const std::vector<VrexContactPath>& paths, std::size_t rows,
            const VrexSolverBuilder::Rows& evaluate);

} // namespace nsContactPaths
