#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "data/3d/VrexDragParameter3D.h"
#include "data/3d/VrexDragTransform3D.h"
#include "data/3d/VrexTransformInterface.h"
#include "data/VrexExport.h"
#include "data/VrexTransformMatrix3D.h"
#include "data/VrexVector3DT.h"

/// What a drag in space asks of the solver: entities to be moved by matrices, parameters of entities and
/// variables to be taken to values. It moves nothing itself. One thread at a time.
///
/// An entity has at most one matrix, unless `setTransforms` brings more; it may have several parameters.
class VREX_DATA_EXPORT VrexTransform3D final : public VrexTransformInterface {
public:
    using GeometryMap = std::unordered_map<std::shared_ptr<VrexGeometry3D>, std::shared_ptr<VrexGeometry3D>>;
    using VariableMap =
        std::unordered_map<std::shared_ptr<VrexGeometryVariable>, std::shared_ptr<VrexGeometryVariable>>;

    bool isEmpty() const override;
    /// In the order of their records.
    std::vector<std::shared_ptr<VrexGeometry>> getTransformedGeoms() const override;
    /// In the order of their first records.
    std::vector<std::shared_ptr<VrexGeometry>> getDragParamGeoms() const override;

    void clear();

    /// Moves the entity by `matrix`, after what it is moved by already. False, and nothing changed, for null
    /// and for a matrix whose last row is not (0, 0, 0, 1).
    bool applyTransformation(const std::shared_ptr<VrexGeometry3D>& geometry,
                             const VrexTransformMatrix3D& matrix);
    bool applyTranslation(const std::shared_ptr<VrexGeometry3D>& geometry,
                          const VrexVector3DT<double>& translation);
    /// Replaces the matrix of an entity that has one; false for any other.
    /// Kept: the matrix is not examined.
    bool setTransformation(const std::shared_ptr<VrexGeometry3D>& geometry,
                           const VrexTransformMatrix3D& matrix);
    /// Replaces all matrices. False, and nothing changed, where `applyTransformation` would refuse one.
    /// Kept: an entity may stand in the list twice; the last of its records is the one that is found.
    bool setTransforms(std::vector<VrexDragTransform3D> transforms);
    /// Appends a target value; false, and nothing changed, for null.
    bool applyTransformParameters(const std::shared_ptr<VrexGeometry3D>& geometry,
                                  VrexDragParameter3DType type, double value);
    /// Kept: appends to what there is, and replaces nothing.
    void setDragParameters(const std::vector<VrexDragParameter3D>& parameters);

    const std::vector<VrexDragTransform3D>& transformations() const { return m_transformations; }
    const std::vector<VrexDragParameter3D>& transformParameters() const { return m_transformParameters; }
    /// Valid until the next change. Throws `std::out_of_range` for an entity without a matrix.
    const VrexDragTransform3D& getTransformForGeometry(const std::shared_ptr<VrexGeometry3D>& geometry) const;
    /// False, and `out` as it was, for an entity without a matrix.
    bool getTransformMatrixForGeometry(const std::shared_ptr<VrexGeometry3D>& geometry,
                                       VrexTransformMatrix3D& out) const;
    /// The records of the entity, in order.
    std::vector<VrexDragParameter3D>
    getDragParametersForGeometry(const std::shared_ptr<VrexGeometry3D>& geometry) const;

    /// A copy that names other objects, as the maps tell from old to new; what they do not name, or name as
    /// null, stays. Records keep their places.
    std::shared_ptr<VrexTransform3D> clone(const GeometryMap& geometryMap,
                                           const VariableMap& variableMap) const;

private:
    /// Each index follows from its records.
    void indexParameters();
    void indexVariables();

    std::vector<VrexDragTransform3D> m_transformations;
    std::vector<VrexDragParameter3D> m_transformParameters;
};
