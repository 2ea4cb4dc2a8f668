#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/VrexVisitor3D.h"
#include "data/serialization/VrexObjectDecoder.h"

/// Reads single objects of space, too. An object is created from the fields of its kind; a visit, which is
/// the last of the bytes to be read, gives it those that its family has in common.
class VREX_DATA_EXPORT VrexObjectDecoder3D : public VrexVisitor3D, public VrexObjectDecoder {
public:
    using VrexObjectDecoder::VrexObjectDecoder;
    ~VrexObjectDecoder3D() override;

    void visitBaseGeometry(VrexBaseGeometry& geometry) override;
    void visitConstraint3D(VrexConstraint3D& constraint) override;
    void visitDimension3D(VrexDimension3D& dimension) override;
    void visitMate3D(VrexMate3D& mate) override;

private:
    /// Reads the type and the fields of its kind, and creates the object with them. Null for a type that
    /// streams do not have, too.
    static std::shared_ptr<VrexGeometry3D> readGeometry(VrexStreamDecoder& stream);
    /// The same up to the fields that stand before the identifier, components included.
    static std::shared_ptr<VrexConstraint3D> readConstraint(VrexStreamDecoder& stream);

    std::shared_ptr<VrexBaseObject> decodeGeometry() override;
    std::shared_ptr<VrexBaseObject> decodeConstraint() override;
    /// Visits the object; whether that reads the rest of the block.
    bool isCompleted(VrexBaseObject& object);

    bool m_done = false; ///< Whether the visit read what it had to.
};
