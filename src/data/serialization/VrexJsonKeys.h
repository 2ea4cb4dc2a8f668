#pragma once

#include <string_view>

/// The keys of a document, and the texts that stand where no enumeration has a table; to the letter.
/// Where two or four keys always go together they are one constant.
namespace nsJsonKeys {

using Key = std::string_view;

/// The ends of a range, or limits.
struct RangeKeys {
    Key lower, upper;
};
/// A pair of parameters on a surface; on a curve the first counts.
struct ParameterKeys {
    Key u, v;
};
/// One free degree of a mate.
struct DegreeKeys {
    RangeKeys limits;
    Key fix, value;
};

// The root.
inline constexpr Key OBJECTS = "objects";
inline constexpr Key VARIABLES = "variables";
inline constexpr Key CONSTRAINTS = "constraints"; ///< Of a constraint: those that it is made of.
inline constexpr Key EQUATIONS = "equations";
inline constexpr Key REFERENCE_GEOMETRIES = "ReferenceGeometries";
inline constexpr Key DRAG_TRANSFORMS = "dragTransforms";
inline constexpr Key DRAG_TRANSLATIONS = "dragTranslations";
inline constexpr Key DRAG_PARAMETERS = "dragParameters";
inline constexpr Key DRAG_VARIABLES = "dragVariables";
inline constexpr Key MOVE_AND_EVALUATE = "moveAndEvaluate";
inline constexpr Key LINEAR_TOLERANCE = "LinearTolerance";
inline constexpr Key ANGULAR_TOLERANCE = "AngularTolerance";
inline constexpr Key MAX_ID = "maxId";

// What is dragged.
inline constexpr Key OBJECT_ID = "objectId"; ///< Kept: an index all the same.
inline constexpr Key TRANSFORM_MATRIX = "transformMatrix";
inline constexpr Key TRANSLATION = "translation";
inline constexpr Key TARGET_VALUE = "targetValue";

// Every object.
inline constexpr Key ID = "id";
inline constexpr Key LABEL = "label";
inline constexpr Key TYPE = "type";
inline constexpr Key STATUS = "status";
inline constexpr Key CHANGE_STATUS = "changeStatus";
inline constexpr Key SATISFIED_STATUS = "satisfiedStatus";
inline constexpr Key SOLVE_METHOD_STATUS = "solveMethodStatus";

// Geometries.
inline constexpr Key LOC = "loc";
inline constexpr Key CEN = "cen";
inline constexpr Key DIR = "dir";
inline constexpr Key NORM = "norm";
inline constexpr Key AXIS = "axis"; ///< A vector, or of spins and patterns the index of a line.
inline constexpr Key ROT = "rot";
inline constexpr Key RAD = "rad";
inline constexpr Key MAJ = "maj";
inline constexpr Key MIN = "min";
inline constexpr Key AP = "ap";
inline constexpr Key ALLOW_RADIUS_SIGN_CHANGE = "allowRadiusSignChange";
inline constexpr Key U_DEGREE = "uDegree";
inline constexpr Key V_DEGREE = "vDegree";
inline constexpr Key U_KNOTS = "uKnots";
inline constexpr Key V_KNOTS = "vKnots";
inline constexpr Key CONTROL_POINTS = "controlPoints";
inline constexpr Key WEIGHTS = "weights";
inline constexpr Key DEGREE = "degree";
inline constexpr Key PERIODIC = "periodic";
inline constexpr Key KNOTS = "knots";
inline constexpr Key POINTS = "points";
inline constexpr Key INTERPOLATED_POINTS = "interpolatedPoints";
inline constexpr Key INTERPOLATED_PARAMETERS = "interpolatedParameters";
inline constexpr Key PROFILE_SURFACE = "profileSurface"; ///< Kept: of a spin, and a curve.
inline constexpr Key PROFILE_CURVE = "profileCurve";
inline constexpr Key TRAJECTORY_LINE = "trajectoryLine";
inline constexpr Key X = "x";
inline constexpr Key Y = "y";
inline constexpr Key Z = "z";
inline constexpr Key PATTERN_TYPE = "patternType";
inline constexpr RangeKeys CURVE_RANGE = {"startParameter", "endParameter"};
inline constexpr RangeKeys U_RANGE = {"startParameterU", "endParameterU"};
inline constexpr RangeKeys V_RANGE = {"startParameterV", "endParameterV"};

// Variables.
inline constexpr Key VAL = "val";

// Constraints, and patterns and sets among the geometries.
inline constexpr Key ARGUMENTS = "arguments";
inline constexpr Key VALUE = "value";
inline constexpr Key RIGID = "rigid";
inline constexpr RangeKeys LIMITS = {"minLimit", "maxLimit"};
inline constexpr Key VARIABLE = "variable";
inline constexpr Key DIRECTION = "direction";
inline constexpr Key RAD_TYPE = "radType";
inline constexpr Key RAD_TYPE_1 = "radType1";
inline constexpr Key RAD_TYPE_2 = "radType2";
inline constexpr Key WINDING_ANGLE = "windingAngle";
inline constexpr Key INC_TYPE = "incType";
inline constexpr Key FIX_TYPE = "fixType";
inline constexpr Key COEFFICIENTS = "coefficients";
inline constexpr DegreeKeys DISTANCE = {{"distanceMin", "distanceMax"}, "distanceFix", "distance"};
inline constexpr DegreeKeys DISTANCE_X = {{"distanceXMin", "distanceXMax"}, "distanceXFix", "distanceX"};
inline constexpr DegreeKeys DISTANCE_Y = {{"distanceYMin", "distanceYMax"}, "distanceYFix", "distanceY"};
inline constexpr DegreeKeys DISTANCE_Z = {{"distanceZMin", "distanceZMax"}, "distanceZFix", "distanceZ"};
inline constexpr DegreeKeys ANGLE = {{"angleMin", "angleMax"}, "angleFix", "angle"};
inline constexpr Key DIMENSION_TYPE = "dimensionType";
inline constexpr Key DIMENSION_INDEX = "dimensionIndex";
inline constexpr Key HELP_PARAMETERS = "helpParameters";
inline constexpr Key MATE_PARAMETER_INDEXS = "mateParameterIndexs"; ///< Kept: spelt so.
inline constexpr Key RATIO = "ratio";
inline constexpr Key ALIGNMENT = "alignment";
inline constexpr Key ORIENTATION = "orientation";
inline constexpr Key HELP_POINT_1 = "helpPoint1";
inline constexpr Key HELP_POINT_2 = "helpPoint2";
inline constexpr ParameterKeys HELP_PARAMETER_1 = {"helpParameterU1", "helpParameterV1"};
inline constexpr ParameterKeys HELP_PARAMETER_2 = {"helpParameterU2", "helpParameterV2"};
inline constexpr Key FIX_HELP_PARAMETER_1 = "fixHelpParameter1";
inline constexpr Key FIX_HELP_PARAMETER_2 = "fixHelpParameter2";
inline constexpr Key GEOM_COMPONENT_1 = "GeomComponent1";
inline constexpr Key GEOM_COMPONENT_2 = "GeomComponent2";

// Equations.
inline constexpr Key CONDITION_TYPE = "conditionType";
inline constexpr Key EXPRESSION = "expression";
inline constexpr Key COEF = "coef";
inline constexpr Key MULTIPLIERS = "multipliers";
inline constexpr Key CALLBACK = "callback";

// Descriptors.
inline constexpr Key DESCRIPTORS = "descriptors";
inline constexpr Key NAME = "name";
inline constexpr Key INDEX = "index";
inline constexpr Key VARIABLE_INDEX = "variableIndex";
inline constexpr Key OBJECT = "object";
inline constexpr Key CONSTRAINT = "constraint";

} // namespace nsJsonKeys

/// The values of `type` for what has no enumeration.
namespace nsJsonTypes {

inline constexpr std::string_view EXPRESSION_EQUATION = "ExpressionEquation";
inline constexpr std::string_view LINEAR_EQUATION = "LinearEquation";
inline constexpr std::string_view GENERIC_CALLBACK = "GenericCallback";

inline constexpr std::string_view VARIABLE = "Variable";
inline constexpr std::string_view GEOMETRY = "Geometry";
inline constexpr std::string_view CONSTRAINT = "Constraint";

} // namespace nsJsonTypes
