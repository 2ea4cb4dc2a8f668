#pragma once

#include "data/VrexExport.h"
#include "data/base/VrexToleranceGetter.h"

class VrexBaseObject;
class VrexIDGenerator;

/// The part of a factory that gives objects their identifiers.
class VREX_DATA_EXPORT VrexBaseObjectFactory : public VrexToleranceGetter {
public:
    /// The owner of the factory sets the generator and keeps it alive; null for objects without identifiers.
    void setIDGenerator(VrexIDGenerator* generator) { m_idGenerator = generator; }

protected:
    VrexBaseObjectFactory() = default;
    VrexBaseObjectFactory(const VrexBaseObjectFactory&) = default;
    VrexBaseObjectFactory& operator=(const VrexBaseObjectFactory&) = default;
    ~VrexBaseObjectFactory() = default;

    /// Gives `object` the generator's next identifier; without a generator it stays without one.
    void assignID(VrexBaseObject& object) const;

    VrexIDGenerator* m_idGenerator = nullptr;
};
