#include "data/3d/VrexTransform3D.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "data/3d/VrexDragRecords.h"
#include "data/VrexLog.h"
#include "data/VrexStandardTexts.h"

namespace {

bool isApplicable(const std::shared_ptr<VrexGeometry3D>& geometry, const VrexTransformMatrix3D& matrix) {
    return geometry != nullptr && matrix.isTransformMatrix();
}

template <class Object>
void rewire(std::shared_ptr<Object>& object,
            const std::unordered_map<std::shared_ptr<Object>, std::shared_ptr<Object>>& map) {
    const auto found = map.find(object);
    if (found != map.end() && found->second != nullptr) {
        object = found->second;
    }
}

/// Each entity's place among the records, the last one of several.
std::unordered_map<std::shared_ptr<VrexGeometry>, std::uint64_t>
indexOf(const std::vector<VrexDragTransform3D>& records) {
    std::unordered_map<std::shared_ptr<VrexGeometry>, std::uint64_t> index;
    for (std::uint64_t i = 0; i < records.size(); ++i) {
        index[records[i].geometry] = i;
    }
    return index;
}

} // namespace

bool VrexTransform3D::isEmpty() const {
    return m_transformations.empty() && m_transformParameters.empty() && m_variableTransformations.empty();
}

std::vector<std::shared_ptr<VrexGeometry>> VrexTransform3D::getTransformedGeoms() const {
    std::vector<std::shared_ptr<VrexGeometry>> geometries;
    for (std::uint64_t i = 0; i < m_transformations.size(); ++i) {
        const auto& geometry = m_transformations[i].geometry;
        if (m_geometryIndex.at(geometry) == i) {
            geometries.push_back(geometry);
        }
    }
    return geometries;
}

std::vector<std::shared_ptr<VrexGeometry>> VrexTransform3D::getDragParamGeoms() const {
    std::vector<std::shared_ptr<VrexGeometry>> geometries;
    for (std::uint64_t i = 0; i < m_transformParameters.size(); ++i) {
        const auto& geometry = m_transformParameters[i].geometry;
        if (m_parameterIndex.at(geometry).front() == i) {
            geometries.push_back(geometry);
        }
    }
    return geometries;
}

void VrexTransform3D::clear() {
    m_geometryIndex.clear();
    m_parameterIndex.clear();
    m_variableIndex.clear();
    m_variableTransformations.clear();
    m_transformations.clear();
    m_transformParameters.clear();
}

bool VrexTransform3D::applyTransformation(const std::shared_ptr<VrexGeometry3D>& geometry,
                                          const VrexTransformMatrix3D& matrix) {
    if (!isApplicable(geometry, matrix)) {
        return false;
    }
    const auto found = m_geometryIndex.find(geometry);
    if (found != m_geometryIndex.end()) {
        VrexTransformMatrix3D& present = m_transformations[found->second].matrix;
        present = matrix * present;
        return true;
    }
    const auto enter = [this](const VrexDragTransform3D& record, std::uint64_t place) {
        m_geometryIndex.emplace(record.geometry, place);
    };
    nsDragRecords::append(m_transformations, {geometry, matrix}, enter);
    return true;
}

bool VrexTransform3D::applyTranslation(const std::shared_ptr<VrexGeometry3D>& geometry,
                                       const VrexVector3DT<double>& translation) {
    return applyTransformation(geometry, VrexTransformMatrix3D::translate(translation));
}

bool VrexTransform3D::setTransformation(const std::shared_ptr<VrexGeometry3D>& geometry,
                                        const VrexTransformMatrix3D& matrix) {
    const auto found = m_geometryIndex.find(geometry);
    if (found == m_geometryIndex.end()) {
        return false;
    }
    m_transformations[found->second].matrix = matrix;
    return true;
}

bool VrexTransform3D::setTransforms(std::vector<VrexDragTransform3D> transforms) {
    const auto isGood = [](const VrexDragTransform3D& record) {
        return isApplicable(record.geometry, record.matrix);
    };
    if (!std::ranges::all_of(transforms, isGood)) {
        return false;
    }
    m_geometryIndex = indexOf(transforms);
    m_transformations = std::move(transforms);
    return true;
}

bool VrexTransform3D::applyTransformParameters(const std::shared_ptr<VrexGeometry3D>& geometry,
                                               VrexDragParameter3DType type, double value) {
    if (geometry == nullptr) {
        return false;
    }
    const auto enter = [this](const VrexDragParameter3D& record, std::uint64_t place) {
        const auto [entry, isNew] = m_parameterIndex.try_emplace(record.geometry, 1, place);
        if (!isNew) {
            entry->second.push_back(place);
        }
    };
    nsDragRecords::append(m_transformParameters, {geometry, type, value}, enter);
    return true;
}

void VrexTransform3D::setDragParameters(const std::vector<VrexDragParameter3D>& parameters) {
    // A copy: the list may be this object's own, which grows meanwhile.
    for (const VrexDragParameter3D& record : std::vector<VrexDragParameter3D>(parameters)) {
        applyTransformParameters(record.geometry, record.type, record.value);
    }
}

const VrexDragTransform3D&
VrexTransform3D::getTransformForGeometry(const std::shared_ptr<VrexGeometry3D>& geometry) const {
    const auto found = m_geometryIndex.find(geometry);
    if (found == m_geometryIndex.end()) {
        VREX_RAISE(std::out_of_range, nsStandardTexts::UNORDERED_MAP_KEY);
    }
    return m_transformations[found->second];
}

bool VrexTransform3D::getTransformMatrixForGeometry(const std::shared_ptr<VrexGeometry3D>& geometry,
                                                    VrexTransformMatrix3D& out) const {
    const auto found = m_geometryIndex.find(geometry);
    if (found == m_geometryIndex.end()) {
        return false;
    }
    out = m_transformations[found->second].matrix;
    return true;
}

std::vector<VrexDragParameter3D>
VrexTransform3D::getDragParametersForGeometry(const std::shared_ptr<VrexGeometry3D>& geometry) const {
    std::vector<VrexDragParameter3D> records;
    const auto found = m_parameterIndex.find(geometry);
    if (found != m_parameterIndex.end()) {
        for (const std::uint64_t index : found->second) {
            records.push_back(m_transformParameters[index]);
        }
    }
    return records;
}

std::shared_ptr<VrexTransform3D> VrexTransform3D::clone(const GeometryMap& geometryMap,
                                                        const VariableMap& variableMap) const {
    auto copy = std::make_shared<VrexTransform3D>(*this);
    for (VrexDragTransform3D& record : copy->m_transformations) {
        rewire(record.geometry, geometryMap);
    }
    for (VrexDragParameter3D& record : copy->m_transformParameters) {
        rewire(record.geometry, geometryMap);
    }
    for (VrexDragVariable& record : copy->m_variableTransformations) {
        rewire(record.variable, variableMap);
    }
    copy->m_geometryIndex = indexOf(copy->m_transformations);
    copy->indexParameters();
    copy->indexVariables();
    return copy;
}

void VrexTransform3D::indexParameters() {
    m_parameterIndex.clear();
    for (std::uint64_t i = 0; i < m_transformParameters.size(); ++i) {
        m_parameterIndex[m_transformParameters[i].geometry].push_back(i);
    }
}

void VrexTransform3D::indexVariables() {
    m_variableIndex.clear();
    for (std::uint64_t i = 0; i < m_variableTransformations.size(); ++i) {
        m_variableIndex[m_variableTransformations[i].variable] = i;
    }
}
