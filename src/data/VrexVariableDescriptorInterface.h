#pragma once

#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVariableDescriptor.h"

/// An object that is computed from parameters of other objects, which it names by descriptors.
class VREX_DATA_EXPORT VrexVariableDescriptorInterface {
public:
    virtual const std::vector<VrexVariableDescriptor>& descriptors() const = 0;
    virtual void setDescriptors(std::vector<VrexVariableDescriptor> descriptors) = 0;

protected:
    VrexVariableDescriptorInterface() = default;
    VrexVariableDescriptorInterface(const VrexVariableDescriptorInterface&) = default;
    VrexVariableDescriptorInterface& operator=(const VrexVariableDescriptorInterface&) = default;
    ~VrexVariableDescriptorInterface() = default;
};
