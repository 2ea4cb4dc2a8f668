#include "data/graph/VrexGraphVisitor.h"

VrexGraphVisitor::VrexGraphVisitor() = default;
VrexGraphVisitor::VrexGraphVisitor(const VrexGraphVisitor&) = default;
VrexGraphVisitor& VrexGraphVisitor::operator=(const VrexGraphVisitor&) = default;
VrexGraphVisitor::~VrexGraphVisitor() = default;

void VrexGraphVisitor::startVertex(VrexConstraintGraph&, std::shared_ptr<VrexVertex>&) {}

void VrexGraphVisitor::initializeVertex(VrexConstraintGraph&, std::shared_ptr<VrexVertex>&) {}

void VrexGraphVisitor::discoverVertex(VrexConstraintGraph&, std::shared_ptr<VrexVertex>&) {}

void VrexGraphVisitor::examineEdge(VrexConstraintGraph&, VrexEdge&) {}

void VrexGraphVisitor::finishVertex(VrexConstraintGraph&, std::shared_ptr<VrexVertex>&) {}

void VrexGraphVisitor::finishEdge(VrexConstraintGraph&, VrexEdge&) {}

void VrexGraphVisitor::setColorMap(VrexGraphColorMap* colorMap) {
    m_colorMap = colorMap;
    m_flatColors = nullptr;
}

VrexGraphColorMap* VrexGraphVisitor::tableOf() {
    if (m_flatColors != nullptr) {
        m_flatColors->moveInto(*m_colorMap);
    }
    return m_colorMap;
}

VrexGraphVertexColor VrexGraphVisitor::vertexColor(std::uint64_t id) {
    VrexGraphColorMap* table = tableOf();
    return table != nullptr ? (*table)[id] : VrexGraphVertexColor::White;
}

void VrexGraphVisitor::setFixGeometryColor(std::uint64_t id, VrexGraphVertexColor color) {
    if (VrexGraphColorMap* table = tableOf()) {
        (*table)[id] = color;
    }
}
