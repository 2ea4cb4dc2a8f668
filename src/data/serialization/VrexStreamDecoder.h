#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVector2DT.h"
#include "data/VrexVector3DT.h"
#include "data/serialization/VrexDecodedObjects.h"
#include "data/serialization/VrexPackedBytes.h"

class VrexBaseConstraint;
class VrexBaseGeometry;
class VrexBaseObject;
class VrexGeometry3D;
class VrexVariableDescriptor;

/// Reads the compact stream that `VrexStreamEncoder` writes.
///
/// Every operation answers false when its bytes do not make sense or reach beyond the innermost open block or
/// the input; then neither the position nor what it would have read into has changed, except for the objects
/// that a list of objects has entered into the table.
///
/// Objects that were decoded are known by identifier, geometries and variables apart from constraints and
/// equations, which may have the same numbers.
class VREX_DATA_EXPORT VrexStreamDecoder {
public:
    /// The input must outlive the decoder.
    VrexStreamDecoder(const unsigned char* input, std::uint32_t size);
    VrexStreamDecoder(const VrexStreamDecoder&) = delete;
    VrexStreamDecoder& operator=(const VrexStreamDecoder&) = delete;
    virtual ~VrexStreamDecoder();
    /// Reads one object; null where it cannot.
    virtual std::shared_ptr<VrexBaseObject> decodeObject() = 0;

    /// Whether callback equations are read, by default they are: their function is an address of this
    /// process, which is called when the equation is evaluated. To be refused in a stream of doubtful origin.
    void setCallbacksAllowed(bool allowed) { m_callbacksAllowed = allowed; }
    bool areCallbacksAllowed() const { return m_callbacksAllowed; }

    bool expectTag();
    bool readU32(std::uint32_t& out) { return readPacked(out); }
    bool readI32(std::int32_t& out) { return readPacked(out); }
    bool readU64(std::uint64_t& out) { return readPacked(out); }
    bool readF64(double& out) { return readPacked(out); }
    bool readBool(bool& out); ///< True for every byte but 0.
    bool readU8(std::uint8_t& out) { return readPacked(out); }
    /// Takes the text up to its first zero byte, which has to stand within the count.
    bool readString(std::string& out);
    bool readVector(VrexVector3DT<double>& out) { return readPacked(out); }
    bool readVector2(VrexVector2DT<double>& out) { return readPacked(out); }
    /// Numbers, enumerators and vectors one behind the other, all in one step. Enumerators are not examined.
    template <class... Values>
    bool readPacked(Values&... out) {
        constexpr std::uint32_t COUNT = nsPacked::sizeOf<Values...>();
        if (COUNT > m_size - m_position) {
            return false;
        }
        nsPacked::unpack(m_input + m_position, out...);
        m_position += COUNT;
        return true;
    }
    /// Appends a descriptor, whose object has to be known. A geometry or variable has to have the parameter,
    /// a constraint or equation need not.
    bool readDescriptor(std::vector<VrexVariableDescriptor>& out);

    bool readOptionalF64(std::optional<double>& out);
    bool readOptionalVector(std::optional<VrexVector3DT<double>>& out);
    bool readOptionalVector2(std::optional<VrexVector2DT<double>>& out);
    /// The lists replace what `out` held.
    bool readF64List(std::vector<double>& out);
    bool readIdList(std::vector<std::uint64_t>& out);
    bool readDescriptorList(std::vector<VrexVariableDescriptor>& out);
    bool readObjectList(std::vector<std::shared_ptr<VrexBaseObject>>& out);

    /// Opens a block and runs `read`, which has to answer true and to read all of it.
    template <class Read>
    bool readBlock(Read read) {
        Scope block(*this);
        return block.isOpen() && read() && block.close();
    }
    /// A block of elements: runs `readElement` until the block is used up; each has to read something.
    template <class ReadElement>
    bool readList(ReadElement readElement) {
        return readBlock([&] {
            bool isRead = true;
            while (isRead && !isAtEnd()) {
                const std::uint32_t before = m_position;
                isRead = readElement() && m_position != before;
            }
            return isRead;
        });
    }
    /// Whether the innermost open block, without one the input, is used up.
    bool isAtEnd() const { return m_position == m_size; }
    std::uint32_t position() const { return m_position; }

    /// Makes an object known; one that was known under its identifier is replaced. Does nothing for null.
    void enterObject(const std::shared_ptr<VrexBaseObject>& object);
    /// The same without a cast. `entity` is the geometry, or null for one that is no entity in space.
    void enterGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry, VrexGeometry3D* entity);
    void enterConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint);
    /// Null for an identifier that is not known, as is `findConstraint`. Both are valid until the next object
    /// is made known.
    const std::shared_ptr<VrexBaseGeometry>& findGeometry(std::uint64_t id) const;
    const std::shared_ptr<VrexBaseConstraint>& findConstraint(std::uint64_t id) const;
    /// Null as well for a geometry that was not entered as an entity in space.
    std::shared_ptr<VrexGeometry3D> findEntity(std::uint64_t id) const;
    /// The geometry, or if there is none the constraint.
    std::shared_ptr<VrexBaseObject> findObject(std::uint64_t id) const;

private:
    /// A block while it is read. At its end the size is that of the enclosing block again; unless the block
    /// was closed, the position is the one before it, too.
    class VREX_DATA_EXPORT Scope {
    public:
        explicit Scope(VrexStreamDecoder& decoder);
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        ~Scope();
        bool isOpen() const { return m_open; }
        /// False unless all was read.
        bool close() { return m_closed = m_decoder.isAtEnd(); }

    private:
        VrexStreamDecoder& m_decoder;
        std::uint32_t m_position;
        std::uint32_t m_size;
        bool m_open;
        bool m_closed = false;
    };

    bool openBlock();
    bool readBytes(void* out, std::uint32_t count);
    template <class Value>
    bool readOptional(std::optional<Value>& out);
    template <class Number>
    bool readNumbers(std::vector<Number>& out);

    const unsigned char* m_input;
    std::uint32_t m_size; ///< The end of the innermost open block, without one of the input.
    std::uint32_t m_position = 0;
    VrexDecodedObjects m_objects;
    bool m_callbacksAllowed = true;
};
