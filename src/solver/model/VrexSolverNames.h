#pragma once

#include <string>

class VrexBaseObject;

/// How messages name objects.
namespace nsSolverNames {

/// Prefix and identifier, such as "p17", and the label, if there is one, in brackets.
std::string nameOf(const VrexBaseObject& object);

} // namespace nsSolverNames
