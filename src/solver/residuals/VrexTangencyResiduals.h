#pragma once

class VrexSolverBuilder;
class VrexTangency3D;

/// What a tangency asks for: with a surface, that the gap between the two is zero, see `VrexContactGap`; of
/// two curves, that they meet and have one tangent there.
///
///   line and circle or ellipse   d.z = 0, (o - c).z = 0, |(o - c).m| = sqrt((a m.x)^2 + (b m.y)^2), with m
///                                the line's normal in their plane
///   two curves                   p(s) = q(t), p' x q' = 0
///   curve or surface and a surface that has but its parameters
///                                p = q(u, v), each tangent of p at a right angle to dq/du x dq/dv
namespace nsTangencyResiduals {

void add(VrexSolverBuilder& builder, VrexTangency3D& tangency);

} // namespace nsTangencyResiduals
