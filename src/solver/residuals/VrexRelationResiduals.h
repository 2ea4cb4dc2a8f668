#pragma once

class VrexEqualDimension3D;
class VrexMateDimensionInterval3D;
class VrexMateRelation3D;
class VrexSolverBuilder;

/// What ties dimensions to each other.
namespace nsRelationResiduals {

/// Each dimension has the value of the element, and gives up its own unless it is rigid or bound.
void add(VrexSolverBuilder& builder, VrexEqualDimension3D& equality);
/// The first dimension is `ratio` times the second one.
void add(VrexSolverBuilder& builder, VrexMateRelation3D& relation);
/// The variable is kept within the limits. It is the dimension of the mate that is the interval's parent; an
/// interval without a parent bounds the variable alone.
void add(VrexSolverBuilder& builder, VrexMateDimensionInterval3D& interval);

} // namespace nsRelationResiduals
