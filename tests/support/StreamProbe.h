#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/VrexOutputLength.h"
#include "data/serialization/VrexOutputMemory.h"
#include "data/serialization/VrexStreamDecoder.h"
#include "data/serialization/VrexStreamEncoder.h"

/// Writes objects as variables: a block of u64 identifier and f64 value.
class ProbeEncoder : public VrexStreamEncoder {
public:
    using VrexStreamEncoder::VrexStreamEncoder;
    bool encodeObject(const std::shared_ptr<VrexBaseObject>& object) override {
        const auto variable = std::dynamic_pointer_cast<VrexGeometryVariable>(object);
        return variable != nullptr && beginBlock() && writeU64(variable->getID()) &&
               writeF64(variable->getValue()) && endBlock();
    }
};

/// Reads and enters such variables.
class ProbeDecoder : public VrexStreamDecoder {
public:
    using VrexStreamDecoder::VrexStreamDecoder;
    explicit ProbeDecoder(const std::vector<std::uint8_t>& bytes)
        : VrexStreamDecoder(bytes.data(), static_cast<std::uint32_t>(bytes.size())) {}
    std::shared_ptr<VrexBaseObject> decodeObject() override {
        std::uint64_t id = 0;
        double value = 0.0;
        if (!readBlock([&] { return readU64(id) && readF64(value); })) {
            return nullptr;
        }
        auto variable = VrexGeometryVariable::create(value);
        variable->setID(id);
        enterObject(variable);
        return variable;
    }
};

namespace nsStreamProbe {

using Bytes = std::vector<std::uint8_t>;
using Write = std::function<bool(VrexStreamEncoder&)>;

/// What `write` writes into a buffer of the length that was measured before; expects that to be right.
inline Bytes written(const Write& write) {
    VrexOutputLength measure;
    ProbeEncoder measuring(&measure);
    EXPECT_TRUE(write(measuring));
    Bytes bytes(measure.length());
    VrexOutputMemory memory(bytes.data(), measure.length());
    ProbeEncoder encoder(&memory);
    EXPECT_TRUE(write(encoder));
    EXPECT_EQ(memory.position(), measure.length());
    EXPECT_EQ(memory.length(), measure.length());
    return bytes;
}

inline void append(Bytes& bytes, const Bytes& more) {
    std::copy(more.begin(), more.end(), std::back_inserter(bytes));
}

inline Bytes join(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts) {
        append(all, part);
    }
    return all;
}

/// The `size` low bytes of a number, the lowest first.
inline Bytes little(std::uint64_t number, int size) {
    Bytes bytes;
    for (int i = 0; i < size; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
    }
    return bytes;
}

inline Bytes f64(double number) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return little(bits, 8);
}

inline Bytes string(const std::string& text) {
    Bytes bytes = little(text.size() + 1, 4);
    append(bytes, Bytes(text.begin(), text.end()));
    bytes.push_back(0);
    return bytes;
}

inline Bytes block(const Bytes& payload) {
    Bytes bytes{0x30};
    append(bytes, little(payload.size(), 4));
    append(bytes, payload);
    return bytes;
}

} // namespace nsStreamProbe
