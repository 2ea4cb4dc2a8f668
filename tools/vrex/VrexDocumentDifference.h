#pragma once

#include <functional>
#include <string>

#include "tolvbase/LumoJson.h"

/// One thing that two documents do not have in common.
struct VrexDifference {
    enum class Change { ONLY_IN_FIRST, ONLY_IN_SECOND, CHANGED };

    Change change = Change::CHANGED;
    std::string pointer; ///< A JSON pointer into the first document, unless only the second has it.
    const LumoJson* object = nullptr; ///< That it belongs to; null at the root.
    LumoJson first, second;           ///< The values, null where there is none.
};

/// Compares documents object by object. Objects of one array belong together by identifier where all
/// identifiers of that array differ, in both documents, and by place elsewhere; what they name is compared in
/// the same way.
namespace nsVrexDocumentDifference {

/// Numbers are the same up to `tolerance`, absolutely.
void find(const LumoJson& first, const LumoJson& second, double tolerance,
          const std::function<void(const VrexDifference&)>& take);

} // namespace nsVrexDocumentDifference
