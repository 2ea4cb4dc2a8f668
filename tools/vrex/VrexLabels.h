#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "tools/vrex/VrexToolFailure.h"

/// Objects by what users call them.
namespace nsVrexLabels {

/// A part before the last equal sign, and the numbers behind it.
struct Assignment {
    std::string label;
    std::vector<double> values;
};

/// Splits texts like `label=number` or `label=number,number,number`, with `count` numbers each. Throws
/// `VrexToolFailure` for anything else, and where two have one label; `option` is where they stand.
std::vector<Assignment> parse(const std::string& option, const std::vector<std::string>& texts,
                              std::size_t count);

/// The one object of the list with this label. Throws `VrexToolFailure` where there is none, or several.
template <class Object>
const std::shared_ptr<Object>& find(const std::string& option, const std::string& what,
                                    const std::vector<std::shared_ptr<Object>>& objects,
                                    const std::string& label) {
    const std::shared_ptr<Object>* found = nullptr;
    for (const auto& object : objects) {
        if (object->label() != label) {
            continue;
        }
        if (found != nullptr) {
            throw VrexToolFailure(VrexExitCode::USAGE,
                                  fmt::format("{}: More than one {} is called \"{}\".", option, what, label));
        }
        found = &object;
    }
    if (found == nullptr) {
        throw VrexToolFailure(VrexExitCode::USAGE,
                              fmt::format("{}: No {} is called \"{}\".", option, what, label));
    }
    return *found;
}

} // namespace nsVrexLabels
