#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "Sketch.h"
#include "data/constraint/3d/VrexAngle3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/graph/VrexConnectedComponent.h"

/// A sketch as entities and constraints. Both points of a line are incident to it; a line between fixed
/// points is fixed itself.
class SketchObjects {
public:
    explicit SketchObjects(const Sketch& sketch) : m_sketch(sketch) {
        addPoints();
        addLines();
        addDimensions();
        m_component = std::make_shared<VrexConnectedComponent>(m_geometries, m_constraints);
        reset();
    }

    /// Back to the start.
    void reset() {
        for (std::size_t i = 0; i < m_points.size(); ++i) {
            m_points[i]->setPosition(startOf(i));
        }
        for (std::size_t i = 0; i < m_lines.size(); ++i) {
            const Sketch::Line& line = m_sketch.lines()[i];
            m_lines[i]->setOrigin(startOf(line.first));
            m_lines[i]->setDirection(startOf(line.second) - startOf(line.first));
        }
    }
    std::vector<Sketch::Place> places() const {
        std::vector<Sketch::Place> result;
        for (const auto& point : m_points) {
            const auto position = point->getPosition();
            result.push_back({position.x(), position.y(), position.z()});
        }
        return result;
    }
    const std::shared_ptr<VrexConnectedComponent>& component() const { return m_component; }
    const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries() const { return m_geometries; }
    const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints() const { return m_constraints; }

private:
    static constexpr VrexGeometryComponentType WHOLE = VrexGeometryComponentType::UNKNOWN;

    VrexVector3DT<double> startOf(std::size_t point) const {
        const Sketch::Place& start = m_sketch.points()[point].start;
        return {start[0], start[1], start[2]};
    }
    template <class Geometry>
    std::shared_ptr<Geometry> add(std::shared_ptr<Geometry> geometry, bool isFixed) {
        geometry->setID(++m_lastId);
        m_geometries.push_back(geometry);
        if (isFixed) {
            bind(VrexFixation3D::create(geometry, VrexFixation3DType::Complete3D));
        }
        return geometry;
    }
    void bind(const std::shared_ptr<VrexBaseConstraint>& constraint) {
        constraint->setID(++m_lastId);
        m_constraints.push_back(constraint);
    }
    void addPoints() {
        for (const Sketch::Point& point : m_sketch.points()) {
            m_points.push_back(add(VrexPoint3D::create(0.0, 0.0, 0.0), point.isFixed));
        }
    }
    void addLines() {
        for (const Sketch::Line& line : m_sketch.lines()) {
            const bool isFixed = m_sketch.isFixed(line);
            m_lines.push_back(add(VrexLine3D::create({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}), isFixed));
            for (const std::size_t point : {line.first, line.second}) {
                if (!isFixed) {
                    bind(VrexIncidence3D::create(m_points[point], m_lines.back(),
                                                 VrexIncidence3DType::Default, WHOLE, WHOLE));
                }
            }
        }
    }
    void addDimensions() {
        for (const Sketch::Distance& distance : m_sketch.distances()) {
            bind(VrexDistance3D::create(m_points[distance.first], m_points[distance.second], distance.value,
                                        WHOLE, WHOLE));
        }
        for (const Sketch::LineDistance& distance : m_sketch.lineDistances()) {
            bind(VrexDistance3D::create(m_points[distance.point], m_lines[distance.line], distance.value,
                                        WHOLE, WHOLE));
        }
        for (const Sketch::Angle& angle : m_sketch.angles()) {
            bind(VrexAngle3D::create(m_lines[angle.first], m_lines[angle.second], angle.value));
        }
    }

    const Sketch& m_sketch;
    std::uint64_t m_lastId = 0;
    std::vector<std::shared_ptr<VrexBaseGeometry>> m_geometries;
    std::vector<std::shared_ptr<VrexBaseConstraint>> m_constraints;
    std::vector<std::shared_ptr<VrexPoint3D>> m_points;
    std::vector<std::shared_ptr<VrexLine3D>> m_lines;
    std::shared_ptr<VrexConnectedComponent> m_component;
};
