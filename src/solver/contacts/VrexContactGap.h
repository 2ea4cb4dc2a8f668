#pragma once

#include "data/constraint/VrexConstraintAlignment.h"
#include "data/constraint/VrexConstraintOrientation.h"
#include "solver/contacts/VrexContactFormulas.h"
#include "solver/contacts/VrexContactHelp.h"
#include "solver/contacts/VrexContactPath.h"
#include "solver/contacts/VrexContactSigns.h"
#include "solver/contacts/VrexSolverCore.h"
#include "solver/model/VrexSolverBuilder.h"

class VrexConstraint3D;

/// The gap between two entities where they are nearest, which a distance keeps at its value and a tangency at
/// zero.
///
/// Of two surfaces about cores the gap is that of the cores less the radii: `core * d + first * r1 +
/// second * r2` with signs that are chosen once, as the entities stand: apart from each other, the second
/// inside the first or the first inside the second, whichever leaves most room. The orientation `Positive`
/// asks for the side of the normal or for the outside, `Negative` for the other one. A help point says which
/// of two opposite places of its entity counts, the nearest one or the farthest.
///
/// Where there is no closed form the gap has a point of contact p(t) with parameters of its own, held where
/// the distance f from the other entity does not change: grad f . dp/dt = 0. Of a distance it is the nearest
/// one, also in the end, unless a help point says which.
class VrexContactGap {
public:
    using Measure = VrexSolverBuilder::Measure;

    /// A touch is a gap that stays zero.
    VrexContactGap(VrexSolverBuilder& builder, VrexConstraint3D& constraint, VrexSolverCore first,
                   VrexSolverCore second, bool isTouch);

    /// Adds what keeps points of contact and directions in place, and returns the gap as a length. Empty for
    /// a touch of which no more is to be said.
    Measure build();

private:
    struct Side {
        VrexSolverCore core;
        VrexContactHelp help;
    };

    Measure lines();
    Measure parallelLines();
    Measure skewLines();
    Measure lineAndPlane();
    Measure rimAndPlane();
    Measure coneAndPlane();
    Measure planes();

    Measure pathAndReach();
    Measure touch(const VrexContactPath& path);
    VrexContactSigns startAtHelp(const VrexContactPath& path) const;
    VrexContactSigns startTouching(const VrexContactPath& path) const;
    VrexContactSigns startNearest(const VrexContactPath& path) const;
    VrexSolverBuilder::Rows stay(const VrexContactPath& path, const VrexContactSigns& signs) const;
    double touchCost(const VrexContactPath& path, const VrexContactSigns& signs) const;
    VrexContactSigns signsByHelp(const VrexSolverContact& contact) const;

    Measure paths();
    Measure meet(const VrexContactPath& first, const VrexContactPath& second);

    Measure withSigns(const Measure& distance) const;
    double sideOf(double height) const;
    bool isHeldParallel() const;
    bool isBareTouch() const;
    bool hasHelp() const { return m_first.help.point.has_value() || m_second.help.point.has_value(); }
    const VrexSolverShape& firstShape() const { return m_first.core.shape(); }
    const VrexSolverShape& secondShape() const { return m_second.core.shape(); }

    VrexSolverBuilder& m_builder;
    const VrexConstraint3D& m_constraint;
    Side m_first;
    Side m_second;
    bool m_isTouch;
};
