#include "data/VrexVar.h"

VrexVar::VrexVar() : VrexVariable(0.0), name("v") {}

std::shared_ptr<VrexVar> VrexVar::create(const std::string& name, const VrexVariable& value) {
    auto variable = std::make_shared<VrexVar>();
    static_cast<VrexVariable&>(*variable) = value;
    variable->name = name;
    return variable;
}

std::shared_ptr<VrexVar> VrexVar::create(const std::string& name, double value) {
    return create(name, VrexVariable(value));
}

std::shared_ptr<VrexVar> VrexVar::create(const char* name, const VrexVariable& value) {
    return create(std::string(name != nullptr ? name : ""), value);
}

std::shared_ptr<VrexVar> VrexVar::create(const char* name, double value) {
    return create(name, VrexVariable(value));
}
