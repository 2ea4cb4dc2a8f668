#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/serialization/3d/VrexStreamDecoder3D.h"
#include "support/StreamProbe.h"

/// Objects of the compact stream, put together byte by byte as the format has them.
namespace nsStreamObjects {

using nsStreamProbe::block;
using nsStreamProbe::Bytes;
using nsStreamProbe::f64;
using nsStreamProbe::join;
using nsStreamProbe::little;
using nsStreamProbe::string;
using Ids = std::initializer_list<std::uint64_t>;

inline Bytes u32(std::int64_t number) { return little(static_cast<std::uint64_t>(number), 4); }
inline Bytes u64(std::uint64_t number) { return little(number, 8); }
inline Bytes flag(bool value) { return little(value ? 1 : 0, 1); }
inline Bytes vector(double x, double y, double z) { return join({f64(x), f64(y), f64(z)}); }
inline Bytes some(double value) { return block(f64(value)); }
inline Bytes none() { return {0x30, 0, 0, 0, 0}; }

inline Bytes ids(Ids list) {
    Bytes payload;
    for (const std::uint64_t id : list) {
        nsStreamProbe::append(payload, u64(id));
    }
    return block(payload);
}

inline Bytes numbers(std::initializer_list<double> list) {
    Bytes payload;
    for (const double number : list) {
        nsStreamProbe::append(payload, f64(number));
    }
    return block(payload);
}

inline Bytes descriptor(std::uint64_t id, std::int32_t index, const std::string& name) {
    return block(join({u64(id), u32(index), string(name)}));
}

/// Identifier, two statuses, label, dirty flag; no two values are alike.
inline Bytes common(std::uint64_t id) { return join({u64(id), u32(2), u32(1), string("mark"), flag(false)}); }

inline Bytes variable(std::uint64_t id, double value) {
    return block(join({u32(3), f64(value), common(id)}));
}

inline Bytes geometry(std::int64_t type, const Bytes& fields, std::uint64_t id) {
    return block(join({u32(2), u32(type), fields, common(id)}));
}

inline Bytes point(std::uint64_t id) { return geometry(0, vector(1.0, 2.0, 3.0), id); }
/// The Z axis.
inline Bytes line(std::uint64_t id) {
    return geometry(1, join({vector(0.0, 0.0, 0.0), vector(0.0, 0.0, 1.0)}), id);
}
inline Bytes plane(std::uint64_t id) {
    return geometry(2, join({vector(0.0, 0.0, 0.0), vector(0.0, 0.0, 1.0)}), id);
}
/// Without a range.
inline Bytes circle(std::uint64_t id) {
    return geometry(7, join({vector(1.0, 2.0, 3.0), vector(0.0, 0.0, 1.0), f64(1.5), none(), none()}), id);
}
inline Bytes rigidSet(std::uint64_t id, Ids members) {
    return geometry(3, join({vector(0.0, 0.0, 0.0), vector(0.0, 0.0, 1.0), f64(0.0), ids(members)}), id);
}
inline Bytes connector(std::uint64_t id, std::uint64_t set) {
    return geometry(12, join({u64(set), vector(0.0, 0.0, 0.0), vector(1.0, 0.0, 0.0), f64(0.0)}), id);
}

/// What stands before the fields of the kind.
struct Head {
    std::int64_t type;
    Bytes arguments;
    std::int64_t component1 = 0;
    std::int64_t component2 = 0;
};

inline Bytes help() { return join({none(), none(), none(), none(), flag(false), flag(false)}); }

inline Bytes constraint(const Head& head, const Bytes& fields, std::uint64_t id, const Bytes& tail = {},
                        const Bytes& helpData = help()) {
    return block(join({u32(0), u32(head.type), head.arguments, u32(head.component1), u32(head.component2),
                       fields, common(id), u32(3), u32(2), helpData, tail}));
}

/// Value, rigid, no variable, no limits.
inline Bytes dimensionTail(double value) { return join({f64(value), flag(true), none(), none(), none()}); }

/// A record without limits for each value, fixed; then the empty block.
inline Bytes mateTail(std::initializer_list<double> values) {
    Bytes records;
    for (const double value : values) {
        nsStreamProbe::append(records, block(join({none(), none(), f64(value), flag(true)})));
    }
    return join({block(records), none()});
}

inline Bytes callbackEquation(std::int64_t condition, const Bytes& descriptors, std::uint64_t address,
                              std::uint64_t id) {
    return block(join({u32(1), flag(true), u32(condition), descriptors, u64(address), common(id)}));
}

inline Bytes expressionEquation(std::int64_t condition, const Bytes& descriptors, const std::string& text,
                                std::uint64_t id) {
    return block(join({u32(1), flag(false), u32(condition), descriptors, string(text), common(id)}));
}

/// Reads objects one after the other.
class Reader {
public:
    explicit Reader(Bytes bytes) : m_bytes(std::move(bytes)) {}

    std::shared_ptr<VrexBaseObject> next() { return m_decoder.decodeObject(); }
    /// Passes over objects, which have to be there.
    Reader& skip(int count) {
        for (; count > 0; --count) {
            EXPECT_NE(next(), nullptr);
        }
        return *this;
    }
    /// The next object, which has to be there, of the class, and the last.
    template <class Object>
    std::shared_ptr<Object> last() {
        auto object = std::dynamic_pointer_cast<Object>(next());
        EXPECT_NE(object, nullptr);
        EXPECT_TRUE(m_decoder.isAtEnd());
        return object;
    }
    VrexStreamDecoder3D& decoder() { return m_decoder; }

private:
    Bytes m_bytes;
    VrexStreamDecoder3D m_decoder{m_bytes.data(), static_cast<std::uint32_t>(m_bytes.size())};
};

} // namespace nsStreamObjects
