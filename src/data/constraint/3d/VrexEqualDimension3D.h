#pragma once

#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"

class VrexDimension3D;
class VrexEqualDimensionElement3D;

/// Dimensions that all have the value of one element: kind `EqualDimension3D`, degree of constraint 1.
///
/// The element is the one geometry of the list. The dimensions are shared with whoever else holds them, and
/// an update keeps them.
class VREX_DATA_EXPORT VrexEqualDimension3D final : public VrexConstraint3D {
public:
    using Dimensions = std::vector<std::shared_ptr<VrexDimension3D>>;

    /// Whether there are dimensions and no null, each of two geometries and of the type of the first.
    [[nodiscard]] static bool canCreate(const Dimensions& dimensions);
    /// A constraint without identifier; never null. Everything is stored as given.
    [[nodiscard]] static std::shared_ptr<VrexEqualDimension3D>
    create(Dimensions dimensions, const std::shared_ptr<VrexEqualDimensionElement3D>& element);

    ~VrexEqualDimension3D() override;

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;
    /// The dimensions, without nulls.
    std::vector<std::shared_ptr<VrexBaseConstraint>> getConstraints() override;

    const Dimensions& getDimensions() const { return m_dimensions; }
    /// Null when it was created so.
    std::shared_ptr<VrexEqualDimensionElement3D> getElement() const;

private:
    friend class VrexConstraintSystemCloner3D;
    friend class VrexObjectAccess;

    VrexEqualDimension3D(Dimensions dimensions, const std::shared_ptr<VrexEqualDimensionElement3D>& element);
    VrexEqualDimension3D(const VrexEqualDimension3D&) = default;
    VrexEqualDimension3D& operator=(VrexEqualDimension3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
    /// Keeps the dimensions.
    void doUpdateFrom(const VrexBaseObject& other) override;

    Dimensions m_dimensions;
};
