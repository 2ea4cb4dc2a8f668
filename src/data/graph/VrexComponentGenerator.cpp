#include "data/graph/VrexComponentGenerator.h"

#include <utility>

#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexFixedGeometryTaker.h"

VrexComponentGenerator::VrexComponentGenerator() = default;
VrexComponentGenerator::VrexComponentGenerator(const VrexComponentGenerator& other)
    : VrexGraphVisitor(other),
      m_components(other.m_components),
      m_currentComponent(other.m_currentComponent),
      m_taker(other.m_taker != nullptr ? std::make_unique<VrexFixedGeometryTaker>(*other.m_taker) : nullptr) {
}
VrexComponentGenerator& VrexComponentGenerator::operator=(const VrexComponentGenerator& other) {
    VrexComponentGenerator copy(other);
    VrexGraphVisitor::operator=(copy);
    std::swap(m_components, copy.m_components);
    std::swap(m_currentComponent, copy.m_currentComponent);
    std::swap(m_taker, copy.m_taker);
    return *this;
}
VrexComponentGenerator::~VrexComponentGenerator() = default;

void VrexComponentGenerator::startVertex(VrexConstraintGraph&, std::shared_ptr<VrexVertex>&) {
    startComponent();
}

void VrexComponentGenerator::startComponent() {
    m_currentComponent = std::make_shared<VrexConnectedComponent>();
    m_components.push_back(m_currentComponent);
    if (m_taker == nullptr) {
        m_taker = std::make_unique<VrexFixedGeometryTaker>();
    }
    m_taker->startComponent();
}

void VrexComponentGenerator::discoverVertex(VrexConstraintGraph& graph, std::shared_ptr<VrexVertex>& vertex) {
    if (m_currentComponent == nullptr) { // a search that was not announced
        startComponent();
    }
    if (vertex->getVertexType() == VrexVertexType::Constraint) {
        addConstraint(vertex->getConstraintPtr());
    } else {
        addGeometry(graph, vertex->getGeometryPtr());
    }
}

void VrexComponentGenerator::addConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint) {
    m_currentComponent->addConstraint(constraint);
}

void VrexComponentGenerator::addGeometry(const VrexConstraintGraph& graph,
                                         const std::shared_ptr<VrexBaseGeometry>& geometry) {
    m_taker->take(graph, *m_currentComponent, *this, geometry);
}
