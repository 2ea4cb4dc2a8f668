#include "data/VrexVisitor3D.h"

#include <stdexcept>
#include <type_traits>

#include "data/VrexLog.h"
#include "data/constraint/3d/VrexAngle3D.h"
#include "data/constraint/3d/VrexBallMate3D.h"
#include "data/constraint/3d/VrexConcentricity3D.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/3d/VrexCurveLength3D.h"
#include "data/constraint/3d/VrexCylinderMate3D.h"
#include "data/constraint/3d/VrexDimension3D.h"
#include "data/constraint/3d/VrexDirectionDistance3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexEqualCurveProperty3D.h"
#include "data/constraint/3d/VrexEqualDimension3D.h"
#include "data/constraint/3d/VrexEqualDimensionValue3D.h"
#include "data/constraint/3d/VrexEqualParameter3D.h"
#include "data/constraint/3d/VrexEqualRadius3D.h"
#include "data/constraint/3d/VrexFastenedMate3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexHalfAngle3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexIncidenceToCenter3D.h"
#include "data/constraint/3d/VrexInstance3D.h"
#include "data/constraint/3d/VrexMate3D.h"
#include "data/constraint/3d/VrexMateDimensionInterval3D.h"
#include "data/constraint/3d/VrexMateRelation3D.h"
#include "data/constraint/3d/VrexMidPoint3D.h"
#include "data/constraint/3d/VrexParallelDistance3D.h"
#include "data/constraint/3d/VrexParallelMate3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/constraint/3d/VrexPatternValue3D.h"
#include "data/constraint/3d/VrexPerpendicularity3D.h"
#include "data/constraint/3d/VrexPinSlotMate3D.h"
#include "data/constraint/3d/VrexPlanarAngle3D.h"
#include "data/constraint/3d/VrexPlanarMate3D.h"
#include "data/constraint/3d/VrexRadius3D.h"
#include "data/constraint/3d/VrexRevoluteMate3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "data/constraint/3d/VrexSurfaceNormal3D.h"
#include "data/constraint/3d/VrexSymmetry3D.h"
#include "data/constraint/3d/VrexTangency3D.h"
#include "data/constraint/3d/VrexVariableFixation3D.h"
#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/geometry/3d/VrexArrayPattern3D.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexGeometrySet3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"
#include "data/geometry/3d/VrexTorus3D.h"
#include "data/geometry/VrexGeometryVariable.h"

VrexVisitor3D::~VrexVisitor3D() = default;

#define VREX_OBJECT_ROOT(CLASS, VISIT)                                                                       \
    void VrexVisitor3D::VISIT(CLASS&) {}
#define VREX_OBJECT(CLASS, VISIT, BASE, BASE_VISIT)                                                          \
    void VrexVisitor3D::VISIT(CLASS& object) {                                                               \
        static_assert(std::is_base_of_v<BASE, CLASS>, #CLASS " does not derive from the base of its row");   \
        BASE_VISIT(object);                                                                                  \
    }
// Without a definition of the class there is no object to visit and no base to climb to.
#define VREX_OBJECT_RESERVED(CLASS, VISIT, BASE, BASE_VISIT)                                                 \
    void VrexVisitor3D::VISIT(CLASS&) { VREX_RAISE(std::logic_error, #CLASS " has no objects."); }
#include "data/VrexObjects.def"
