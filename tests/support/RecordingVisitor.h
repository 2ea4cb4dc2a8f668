#pragma once

#include <string>
#include <vector>

#include "data/VrexVisitor3D.h"

/// Writes down the visits that it receives, each before it climbs on as every visitor does.
class RecordingVisitor : public VrexVisitor3D {
public:
    std::vector<std::string> visits;

#define VREX_OBJECT_ROOT(CLASS, VISIT) VREX_OBJECT(CLASS, VISIT, , )
#define VREX_OBJECT(CLASS, VISIT, BASE, BASE_VISIT)                                                          \
    void VISIT(CLASS& object) override {                                                                     \
        visits.emplace_back(#VISIT);                                                                         \
        VrexVisitor3D::VISIT(object);                                                                        \
    }
#include "data/VrexObjects.def"
};
