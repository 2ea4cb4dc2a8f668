#pragma once

#include <optional>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexExport.h"
#include "data/serialization/VrexStreamEncoder.h"

class VrexCallbackEquation;
class VrexExpressionEquation;
class VrexGeometryVariable;

/// Writes objects to the compact stream, as far as they know no dimension: variables, equations, and what all
/// geometries and all constraints have. An object is one block, written in one step or not at all; it names
/// others by identifier.
class VREX_DATA_EXPORT VrexObjectEncoder {
public:
    /// The stream must outlive the encoder.
    explicit VrexObjectEncoder(VrexStreamEncoder* stream);
    VrexObjectEncoder(const VrexObjectEncoder&) = delete;
    VrexObjectEncoder& operator=(const VrexObjectEncoder&) = delete;
    virtual ~VrexObjectEncoder();

    /// Whether the object of the last visit is written.
    bool isDone() const { return m_done; }
    void setDone(bool done) { m_done = done; }

protected:
    /// One object: a block of what `put` puts into fields.
    template <class Put>
    void encode(Put put) {
        m_done = m_stream->writeFields([&](auto& fields) { fields.block([&] { put(fields); }); });
    }
    void encodeVariable(const VrexGeometryVariable& variable);
    /// Only an equation over a `VrexEquationCallback`, and that over a plain function or none, can be
    /// written: other functions have no address. The log tells.
    void encodeCallbackEquation(const VrexCallbackEquation& equation);
    void encodeExpressionEquation(const VrexExpressionEquation& equation);

    /// What ends the fields of a geometry: identifier, status, change status, label, dirty flag.
    template <class Fields>
    static void putCommon(Fields& fields, const VrexBaseGeometry& geometry) {
        putState(fields, geometry, geometry.status(), geometry.getChangeStatus());
    }
    /// Identifier, status, satisfied status, label, dirty flag.
    template <class Fields>
    static void putCommon(Fields& fields, const VrexBaseConstraint& constraint) {
        putState(fields, constraint, constraint.status(), constraint.satisfiedStatus());
    }

private:
    template <class Fields, class Status, class SecondStatus>
    static void putState(Fields& fields, const VrexBaseObject& object, Status status, SecondStatus second) {
        fields.values(object.getID(), nsPacked::number(status), nsPacked::number(second));
        fields.string(object.label());
        fields.values(object.isDirty());
    }

    VrexStreamEncoder* m_stream;
    bool m_done = false;
};
