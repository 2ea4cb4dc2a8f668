#include "data/VrexVisitor3D.h"

#include <stdexcept>
#include <type_traits>

#include "data/VrexLog.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
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
