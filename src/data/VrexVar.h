#pragma once

#include <memory>
#include <string>

#include "data/VrexExport.h"
#include "data/VrexVariable.h"

/// A differentiable scalar with the name by which expressions find it.
class VREX_DATA_EXPORT VrexVar : public VrexVariable {
public:
    /// Value 0, named "v".
    VrexVar();
    /// Never null. A null name is an empty one.
    [[nodiscard]] static std::shared_ptr<VrexVar> create(const char* name, double value);
    [[nodiscard]] static std::shared_ptr<VrexVar> create(const char* name, const VrexVariable& value);
    [[nodiscard]] static std::shared_ptr<VrexVar> create(const std::string& name, double value);
    [[nodiscard]] static std::shared_ptr<VrexVar> create(const std::string& name, const VrexVariable& value);

    std::string name;
};
