#pragma once

#include "data/VrexExport.h"
#include "data/VrexLogOperationType.h"

class VrexVariable;

/// The log's side of each operation. Runs only while logging is on.
///
/// Each function may throw what printing the operands' logs throws.
class VREX_DATA_EXPORT VrexVariableLogging {
public:
    /// For a result made like `a`, which logs: counts the temporary and records operation(a).
    static void recordUnary(VrexVariable& result, const VrexVariable& a, VrexLogOperationType operation);
    /// As `recordUnary`, for a operation c and c operation a.
    static void recordRightConstant(VrexVariable& result, const VrexVariable& a, double c,
                                    VrexLogOperationType operation);
    static void recordLeftConstant(VrexVariable& result, double c, const VrexVariable& a,
                                   VrexLogOperationType operation);
    /// The same for products with a plain number, whose result is no named temporary.
    static void recordRightFactor(VrexVariable& result, const VrexVariable& a, double c);
    static void recordLeftFactor(VrexVariable& result, double c, const VrexVariable& a);
    /// For a result made like `a`, which logs: the temporary's name, or the operation when `b` logs too.
    static void recordBinary(VrexVariable& result, const VrexVariable& a, const VrexVariable& b,
                             VrexLogOperationType operation);
    /// Replaces the log of a copied operand where both log: no temporary is drawn.
    static void recordChoice(VrexVariable& result, const VrexVariable& a, const VrexVariable& b,
                             VrexLogOperationType operation);
    /// Extends the log of `target`, which logs. Nothing has changed when it throws.
    static void recordCompound(VrexVariable& target, double right, VrexLogOperationType operation);
    /// Applies the compound form `apply` to `target`, which logs, and extends its log, or leaves that when
    /// `right` has none. `apply` runs without the log of `target`. Nothing has changed when it throws.
    static void applyCompound(VrexVariable& target, const VrexVariable& right, VrexLogOperationType operation,
                              VrexVariable& (VrexVariable::*apply)(const VrexVariable&));
};
