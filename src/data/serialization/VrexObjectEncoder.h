#pragma once

#include "data/VrexExport.h"
#include "data/serialization/VrexStreamEncoder.h"

class VrexBaseConstraint;
class VrexBaseEquation;
class VrexBaseGeometry;
class VrexBaseObject;
class VrexCallbackEquation;
class VrexExpressionEquation;
class VrexGeometryVariable;

/// Writes objects to the compact stream, as far as they know no dimension: variables, equations, and what all
/// geometries and all constraints have. An object is one block; it names others by identifier.
class VREX_DATA_EXPORT VrexObjectEncoder {
public:
    /// The stream must outlive the encoder.
    explicit VrexObjectEncoder(VrexStreamEncoder* stream);
    VrexObjectEncoder(const VrexObjectEncoder&) = delete;
    VrexObjectEncoder& operator=(const VrexObjectEncoder&) = delete;
    virtual ~VrexObjectEncoder();

    /// Whether the object of the last visit is written; one that is not leaves its blocks open.
    bool isDone() const { return m_done; }
    void setDone(bool done) { m_done = done; }

protected:
    VrexStreamEncoder& stream() { return *m_stream; }
    /// One object: a block of what `writeFields` writes. It is done if all of that succeeds.
    template <class WriteFields>
    void encode(WriteFields writeFields) {
        m_done = m_stream->beginBlock() && writeFields() && m_stream->endBlock();
    }
    void encodeVariable(const VrexGeometryVariable& variable);
    /// Done only for an equation over a `VrexEquationCallback`, and that over a plain function or none: other
    /// functions have no address that could be written. The log tells.
    void encodeCallbackEquation(const VrexCallbackEquation& equation);
    void encodeExpressionEquation(const VrexExpressionEquation& equation);

    /// What ends the fields of a geometry: identifier, status, change status, label, dirty flag.
    bool writeCommonFields(const VrexBaseGeometry& geometry);
    /// Identifier, status, satisfied status, label, dirty flag.
    bool writeCommonFields(const VrexBaseConstraint& constraint);

private:
    bool writeEquationHead(const VrexBaseEquation& equation, bool isCallback);

    VrexStreamEncoder* m_stream;
    bool m_done = false;
};
