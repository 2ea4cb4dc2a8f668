#include "data/serialization/VrexJsonTolerances.h"

#include <stdexcept>
#include <string>

#include "data/VrexLog.h"
#include "data/serialization/VrexJsonKeys.h"
#include "tolvbase/LumoJson.h"

namespace {

double read(const LumoJson& root, nsJsonKeys::Key key, const char* name) {
    const auto found = root.find(key);
    if (found == root.end() || !found->is_number()) {
        VREX_RAISE(std::runtime_error, std::string("The ")
                                           .append(name)
                                           .append(" tolerance should be named: ")
                                           .append(key)
                                           .append(", and should be a number."));
    }
    double tolerance = 0.0;
    getValue(*found, tolerance);
    return tolerance;
}

} // namespace

double nsJsonTolerances::linear(const LumoJson& root) {
    return read(root, nsJsonKeys::LINEAR_TOLERANCE, "linear");
}

double nsJsonTolerances::angular(const LumoJson& root) {
    return read(root, nsJsonKeys::ANGULAR_TOLERANCE, "angular");
}
