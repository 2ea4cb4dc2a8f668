#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/base/VrexBaseDataFactory.h"

class VrexGeometryVariable;

/// Makes the geometries that know no dimension.
class VREX_DATA_EXPORT VrexGeometryFactory final : public VrexBaseDataFactory {
public:
    using VrexBaseDataFactory::VrexBaseDataFactory;

    /// A free scalar with the generator's next identifier, 0 without a generator. Null, with
    /// `CHECK_GEOMETRY_FAILURE` recorded, when it could not be made.
    [[nodiscard]] std::shared_ptr<VrexGeometryVariable> createVariable(double value) const;
};
