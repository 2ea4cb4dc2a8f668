#include "data/base/VrexErrorCode.h"

#include <unordered_map>

namespace {

using NameMap = std::unordered_map<VrexErrorCode, const char*>;

/// Insertion keeps the first name of a value. Never destroyed: static objects may still record at the end.
const NameMap& nameMap() {
    static const NameMap& names = *new NameMap{
        {VrexErrorCode::VREX_NO_ERROR, "VREX_NO_ERROR"},
#define VREX_ERROR_CODE(NAME, DOMAIN, INDEX, CATEGORY) {VrexErrorCode::NAME, #NAME},
#include "data/base/VrexErrorCodes.def"
    };
    return names;
}

/// Fills the table when the library is loaded; a use by an earlier static initialiser fills it then.
[[maybe_unused]] const NameMap& g_filledAtLoad = nameMap();

} // namespace

const char* findErrorCodeName(VrexErrorCode code) {
    const auto found = nameMap().find(code);
    return found != nameMap().end() ? found->second : nullptr;
}
