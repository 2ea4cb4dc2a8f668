#include "data/base/VrexBaseObjectFactory.h"

#include "data/VrexBaseObject.h"
#include "data/base/VrexIDGenerator.h"

void VrexBaseObjectFactory::assignID(VrexBaseObject& object) const {
    if (m_idGenerator != nullptr) {
        object.setID(m_idGenerator->next());
    }
}
