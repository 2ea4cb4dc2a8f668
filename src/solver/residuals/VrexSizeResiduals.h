#pragma once

class VrexEqualDimensionValue3D;
class VrexEqualRadius3D;
class VrexHalfAngle3D;
class VrexPatternValue3D;
class VrexRadius3D;
class VrexSolverBuilder;
class VrexVariableFixation3D;

/// Sizes of entities and plain numbers.
namespace nsSizeResiduals {

/// A radius that starts out negative is counted by its amount, and stays negative, unless the value is
/// negative itself.
void add(VrexSolverBuilder& builder, VrexRadius3D& radius);
/// As for a radius.
void add(VrexSolverBuilder& builder, VrexHalfAngle3D& halfAngle);
void add(VrexSolverBuilder& builder, VrexPatternValue3D& patternValue);
void add(VrexSolverBuilder& builder, VrexEqualDimensionValue3D& value);
/// Radii are equal in amount and keep their signs.
void add(VrexSolverBuilder& builder, VrexEqualRadius3D& equality);
/// The variable stays as it is.
void add(VrexSolverBuilder& builder, VrexVariableFixation3D& fixation);

} // namespace nsSizeResiduals
