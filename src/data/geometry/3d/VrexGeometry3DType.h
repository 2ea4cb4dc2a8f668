#pragma once

#include <cstdint>

#include "data/VrexEnumTable.h"
#include "data/VrexExport.h"

/// The kind of a geometric entity.
enum class VrexGeometry3DType : std::int32_t {
    UNKNOWN = -1,
    POINT = 0,
    LINE = 1,
    PLANE = 2,
    RIGID_SET = 3,
    NURBS_SURFACE = 4,
    CYLINDER = 5,
    SPHERE = 6,
    CIRCLE = 7,
    SPLINE = 8,
    CONE = 9,
    ELLIPSE = 10,
    TORUS = 11,
    CONNECTOR = 12,
    SPIN_SURFACE = 13,
    EVAL_SURFACE = 14,
    EVAL_CURVE = 15,
    SWEEP_SURFACE = 16,
    PATTERN = 17,
    ARRAY_PATTERN = 18,
    EQUAL_DIMENSION_ELEMENT = 19,
    TYPES_COUNT = 20, ///< Closes the list; no kind, and without a row in the table of names.
};

template <>
struct VrexEnumTable<VrexGeometry3DType> {
    static constexpr const char* NAME = "enum VrexGeometry3DType";
    static constexpr VrexEnumRow<VrexGeometry3DType> ROWS[] = {
        {VrexGeometry3DType::UNKNOWN, "Unknown", "?"},
        {VrexGeometry3DType::POINT, "Point3D", "pt"},
        {VrexGeometry3DType::LINE, "Line3D", "ln"},
        {VrexGeometry3DType::PLANE, "Plane3D", "pl"},
        {VrexGeometry3DType::RIGID_SET, "RigidSet3D", "rs"},
        {VrexGeometry3DType::NURBS_SURFACE, "NurbsSurface3D", "ns"},
        {VrexGeometry3DType::CYLINDER, "Cylinder3D", "cy"},
        {VrexGeometry3DType::SPHERE, "Sphere3D", "s"},
        {VrexGeometry3DType::CIRCLE, "Circle3D", "ci"},
        {VrexGeometry3DType::SPLINE, "Spline3D", "sp"},
        {VrexGeometry3DType::CONE, "Cone3D", "co"},
        {VrexGeometry3DType::ELLIPSE, "Ellipse3D", "el"},
        {VrexGeometry3DType::TORUS, "Torus3D", "to"},
        {VrexGeometry3DType::CONNECTOR, "Connector3D", "cnt"},
        {VrexGeometry3DType::SPIN_SURFACE, "SpinSurface3D", "spin"},
        {VrexGeometry3DType::EVAL_SURFACE, "EvaluatedSurface3D", "eval_surf_3d"},
        {VrexGeometry3DType::EVAL_CURVE, "EvaluatedCurve3D", "evac_3d"},
        {VrexGeometry3DType::SWEEP_SURFACE, "SweepSurface3D", "sweep"},
        {VrexGeometry3DType::PATTERN, "Pattern3D", "pat"},
        {VrexGeometry3DType::ARRAY_PATTERN, "ArrayPattern3D", "a_pat"},
        {VrexGeometry3DType::EQUAL_DIMENSION_ELEMENT, "EqualDimensionElement3D", "eq_d_ele"},
    };
};

/// The enumerator's own spelling, such as "RIGID_SET", for messages; "TYPES_COUNT" included.
/// Throws `std::out_of_range` "Failed to convert enum VrexGeometry3DType(N) to string." for any other value.
VREX_DATA_EXPORT const char* getEnumeratorText(VrexGeometry3DType type);
