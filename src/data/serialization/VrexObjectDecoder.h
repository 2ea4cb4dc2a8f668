#pragma once

#include <memory>

#include "data/VrexExport.h"

class VrexBaseConstraint;
class VrexBaseGeometry;
class VrexBaseObject;
class VrexStreamDecoder;

/// Reads single objects from a stream: free scalars and equations; derived classes, what has a dimension.
class VREX_DATA_EXPORT VrexObjectDecoder {
public:
    /// The stream has to outlive this.
    explicit VrexObjectDecoder(VrexStreamDecoder* stream) : m_stream(stream) {}
    VrexObjectDecoder(const VrexObjectDecoder&) = delete;
    VrexObjectDecoder& operator=(const VrexObjectDecoder&) = delete;
    virtual ~VrexObjectDecoder();

    /// Reads the object whose block is open, all of the block, and makes it known. It refers to the objects
    /// that the stream knows. Null, and nothing known, where the bytes make no sense; throws
    /// `std::bad_optional_access` for an object kind that there is not.
    [[nodiscard]] std::shared_ptr<VrexBaseObject> decode();

protected:
    /// Each reads what follows the object kind, all of the block, and makes the object known.
    virtual std::shared_ptr<VrexBaseObject> decodeGeometry() = 0;
    virtual std::shared_ptr<VrexBaseObject> decodeConstraint() = 0;

    VrexStreamDecoder& stream() const { return *m_stream; }
    /// What all geometries and variables have: identifier, statuses, label, dirty flag.
    bool readCommon(VrexBaseGeometry& geometry);
    /// The same of constraints and equations.
    bool readCommon(VrexBaseConstraint& constraint);

private:
    std::shared_ptr<VrexBaseObject> decodeEquation();
    std::shared_ptr<VrexBaseObject> decodeVariable();

    VrexStreamDecoder* m_stream;
};
