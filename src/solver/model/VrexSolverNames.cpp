#include "solver/model/VrexSolverNames.h"

#include "data/VrexBaseObject.h"

std::string nsSolverNames::nameOf(const VrexBaseObject& object) {
    std::string name = object.getNamePrefix();
    name.append(std::to_string(object.getID()));
    if (!object.label().empty()) {
        name.append(" (").append(object.label()).append(")");
    }
    return name;
}
