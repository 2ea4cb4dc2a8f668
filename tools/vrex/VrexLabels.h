#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

class VrexBaseGeometry;

/// Objects by what users call them.
namespace nsVrexLabels {

/// A part before the last equal sign, and the numbers behind it.
struct Assignment {
    std::string label;
    std::vector<double> values;
};

/// Splits `label=number` or `label=number,number,number`. Throws `VrexToolFailure` for anything else;
/// `option` is where it stands.
Assignment parse(const std::string& option, const std::string& text, std::size_t count);

/// The place of the one object with this label, or with this identifier where the label is `#` and a number
/// and nothing is called so. Of several that have it, the one that carries all others, as a body carries its
/// members. Throws `VrexToolFailure` where there is none, or no such one.
std::size_t find(const std::string& option, const std::string& what,
                 const std::vector<const VrexBaseGeometry*>& objects, const std::string& label);

/// The same in a list of a class of its own.
template <class Object>
const std::shared_ptr<Object>& find(const std::string& option, const std::string& what,
                                    const std::vector<std::shared_ptr<Object>>& objects,
                                    const std::string& label) {
    std::vector<const VrexBaseGeometry*> bases;
    for (const auto& object : objects) {
        bases.push_back(object.get());
    }
    return objects[find(option, what, bases, label)];
}

} // namespace nsVrexLabels
