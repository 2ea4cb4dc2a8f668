#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "data/serialization/VrexStreamDecoder.h"
#include "data/serialization/VrexStreamEncoder.h"
#include "support/Numbered.h"
#include "support/ProbeConstraint.h"
#include "support/StreamProbe.h"

namespace nsStreamProbe {
namespace {

/// What a stream may hold. A tree of these is written, defined byte by byte, and read back.
struct Node {
    enum Kind {
        BLOCK,
        TAG,
        BOOL,
        U8,
        U32,
        I32,
        U64,
        F64,
        STRING,
        VECTOR,
        VECTOR2,
        OPTION,
        OPTION_VECTOR,
        OPTION_VECTOR2,
        F64_LIST,
        ID_LIST,
        OBJECTS,
        DESCRIPTORS,
        KINDS
    };

    Kind kind = BLOCK;
    std::uint64_t number = 0;
    std::string text;
    std::vector<double> numbers;
    std::vector<std::uint64_t> ids;
    std::vector<Node> children;
};

constexpr std::uint64_t KNOWN_ID = 4711;

double coordinate(const Node& node, int axis) {
    return static_cast<double>(node.number % 1000) + 0.25 * axis;
}

VrexVector3DT<double> vector(const Node& node) {
    return {coordinate(node, 0), coordinate(node, 1), coordinate(node, 2)};
}

VrexVector2DT<double> vector2(const Node& node) { return {coordinate(node, 0), coordinate(node, 1)}; }

/// Nothing where the node has no numbers.
template <class Value>
std::optional<Value> option(const Node& node, const Value& value) {
    return node.numbers.empty() ? std::nullopt : std::optional<Value>(value);
}

class Trees {
public:
    explicit Trees(unsigned seed) : m_engine(seed) {}

    Node node(int depth) {
        Node made;
        made.kind = static_cast<Node::Kind>(m_engine() % Node::KINDS);
        if (made.kind == Node::BLOCK && depth == 0) {
            made.kind = Node::U8;
        }
        made.number = (std::uint64_t{m_engine()} << 32U) | m_engine();
        made.text.assign(m_engine() % 4, 'x');
        made.numbers.assign(m_engine() % 4, 0.1 * static_cast<double>(m_engine() % 100));
        made.ids.assign(m_engine() % 4, m_engine());
        // A block that is present is never of length 0.
        for (std::size_t i = made.kind == Node::BLOCK ? 1 + m_engine() % 4 : 0; i > 0; --i) {
            made.children.push_back(node(depth - 1));
        }
        return made;
    }
    Node tree() {
        Node root = node(0);
        root.kind = Node::BLOCK;
        root.children = {node(3), node(4), node(2)};
        return root;
    }

private:
    std::mt19937 m_engine;
};

/// The first `count` of the node's coordinates.
Bytes coordinates(const Node& node, int count) {
    Bytes bytes;
    for (int i = 0; i < count; ++i) {
        append(bytes, f64(coordinate(node, i)));
    }
    return bytes;
}

Bytes bytesOf(const Node& node);

/// The definition of what is a block.
Bytes blockOf(const Node& node) {
    Bytes payload;
    switch (node.kind) {
    case Node::BLOCK:
        for (const Node& child : node.children) {
            append(payload, bytesOf(child));
        }
        return block(payload);
    case Node::OPTION:
        return block(node.numbers.empty() ? payload : f64(node.numbers[0]));
    case Node::OPTION_VECTOR:
        return block(node.numbers.empty() ? payload : coordinates(node, 3));
    case Node::OPTION_VECTOR2:
        return block(node.numbers.empty() ? payload : coordinates(node, 2));
    case Node::F64_LIST:
        for (const double number : node.numbers) {
            append(payload, f64(number));
        }
        return block(payload);
    case Node::ID_LIST:
        for (const std::uint64_t id : node.ids) {
            append(payload, little(id, 8));
        }
        return block(payload);
    case Node::OBJECTS:
        for (const double number : node.numbers) {
            Bytes object = little(node.number, 8);
            append(object, f64(number));
            append(payload, block(object));
        }
        return block(payload);
    default:
        for (std::size_t i = 0; i < node.numbers.size(); ++i) {
            Bytes descriptor = little(KNOWN_ID, 8);
            append(descriptor, little(i, 4));
            append(descriptor, nsStreamProbe::string(node.text + "d"));
            append(payload, block(descriptor));
        }
        return block(payload);
    }
}

/// The definition.
Bytes bytesOf(const Node& node) {
    switch (node.kind) {
    case Node::TAG:
        return {0x30};
    case Node::BOOL:
        return little(node.number % 2, 1);
    case Node::U8:
        return little(node.number, 1);
    case Node::U32:
    case Node::I32:
        return little(node.number, 4);
    case Node::U64:
        return little(node.number, 8);
    case Node::F64:
        return f64(static_cast<double>(node.number));
    case Node::STRING:
        return nsStreamProbe::string(node.text);
    case Node::VECTOR:
        return coordinates(node, 3);
    case Node::VECTOR2:
        return coordinates(node, 2);
    default:
        return blockOf(node);
    }
}

std::shared_ptr<VrexGeometryVariable> variable(std::uint64_t id, double value) {
    return numbered(VrexGeometryVariable::create(value), id);
}

bool writeObjects(VrexStreamEncoder& encoder, const Node& node) {
    std::vector<std::shared_ptr<VrexGeometryVariable>> objects;
    for (const double number : node.numbers) {
        objects.push_back(variable(node.number, number));
    }
    return encoder.writeObjectList(objects);
}

bool writeDescriptors(VrexStreamEncoder& encoder, const Node& node) {
    std::vector<VrexVariableDescriptor> descriptors;
    for (std::size_t i = 0; i < node.numbers.size(); ++i) {
        descriptors.emplace_back(variable(KNOWN_ID, 1.0), static_cast<std::uint32_t>(i),
                                 (node.text + "d").c_str());
    }
    return encoder.writeDescriptorList(descriptors);
}

bool writeNode(VrexStreamEncoder& encoder, const Node& node) {
    switch (node.kind) {
    case Node::BLOCK:
        return encoder.writeList(node.children, [&](const Node& child) { return writeNode(encoder, child); });
    case Node::TAG:
        return encoder.writeTag();
    case Node::BOOL:
        return encoder.writeBool(node.number % 2 == 1);
    case Node::U8:
        return encoder.writeU8(static_cast<std::uint8_t>(node.number));
    case Node::U32:
        return encoder.writeU32(static_cast<std::uint32_t>(node.number));
    case Node::I32:
        return encoder.writeI32(static_cast<std::int32_t>(node.number));
    case Node::U64:
        return encoder.writeU64(node.number);
    case Node::F64:
        return encoder.writeF64(static_cast<double>(node.number));
    case Node::STRING:
        return encoder.writeString(node.text);
    case Node::VECTOR:
        return encoder.writeVector(vector(node));
    case Node::VECTOR2:
        return encoder.writeVector2(vector2(node));
    case Node::OPTION:
        return encoder.writeOptionalF64(option(node, node.numbers.empty() ? 0.0 : node.numbers[0]));
    case Node::OPTION_VECTOR:
        return encoder.writeOptionalVector(option(node, vector(node)));
    case Node::OPTION_VECTOR2:
        return encoder.writeOptionalVector2(option(node, vector2(node)));
    case Node::F64_LIST:
        return encoder.writeF64List(node.numbers);
    case Node::ID_LIST:
        return encoder.writeIdList(node.ids);
    case Node::OBJECTS:
        return writeObjects(encoder, node);
    default:
        return writeDescriptors(encoder, node);
    }
}

/// Reads what stands in the place of `node`. Whether that could be read; `same` turns false where it was
/// something else.
class Reader {
public:
    explicit Reader(Bytes bytes) : m_bytes(std::move(bytes)), m_decoder(m_bytes) {
        // Of a constraint the indices are not examined.
        m_decoder.enterObject(numbered(std::make_shared<ProbeConstraint>(), KNOWN_ID));
    }

    bool same = true;

    bool read(const Node& node) {
        switch (node.kind) {
        case Node::BLOCK:
            return readBlock(node);
        case Node::TAG:
            return m_decoder.expectTag();
        case Node::BOOL:
            return readValue(node.number % 2 == 1, &VrexStreamDecoder::readBool);
        case Node::U8:
            return readNumber<std::uint8_t>(node, &VrexStreamDecoder::readU8);
        case Node::U32:
            return readNumber<std::uint32_t>(node, &VrexStreamDecoder::readU32);
        case Node::I32:
            return readNumber<std::int32_t>(node, &VrexStreamDecoder::readI32);
        case Node::U64:
            return readNumber<std::uint64_t>(node, &VrexStreamDecoder::readU64);
        case Node::F64:
            return readValue(static_cast<double>(node.number), &VrexStreamDecoder::readF64);
        case Node::STRING:
            return readValue(node.text, &VrexStreamDecoder::readString);
        case Node::VECTOR:
            return readVectors(std::optional(vector(node)), &VrexStreamDecoder::readVector);
        case Node::VECTOR2:
            return readVectors(std::optional(vector2(node)), &VrexStreamDecoder::readVector2);
        case Node::OPTION:
            return readValue(option(node, node.numbers.empty() ? 0.0 : node.numbers[0]),
                             &VrexStreamDecoder::readOptionalF64);
        case Node::OPTION_VECTOR:
            return readVectors(option(node, vector(node)), &VrexStreamDecoder::readOptionalVector);
        case Node::OPTION_VECTOR2:
            return readVectors(option(node, vector2(node)), &VrexStreamDecoder::readOptionalVector2);
        case Node::F64_LIST:
            return readValue(node.numbers, &VrexStreamDecoder::readF64List);
        case Node::ID_LIST:
            return readValue(node.ids, &VrexStreamDecoder::readIdList);
        case Node::OBJECTS:
            return readCount<std::shared_ptr<VrexBaseObject>>(node, &VrexStreamDecoder::readObjectList);
        default:
            return readCount<VrexVariableDescriptor>(node, &VrexStreamDecoder::readDescriptorList);
        }
    }
    bool isAtEnd() const { return m_decoder.isAtEnd(); }

private:
    bool readBlock(const Node& node) {
        return m_decoder.readBlock([&] {
            return std::all_of(node.children.begin(), node.children.end(),
                               [&](const Node& child) { return read(child); });
        });
    }
    template <class Value>
    bool readValue(const Value& expected, bool (VrexStreamDecoder::*operation)(Value&)) {
        Value value{};
        const bool good = (m_decoder.*operation)(value);
        same = same && value == expected;
        return good;
    }
    static double sum(const VrexVector3DT<double>& v) { return v.x() + 10.0 * v.y() + 100.0 * v.z(); }
    static double sum(const VrexVector2DT<double>& v) { return v.x() + 10.0 * v.y(); }
    /// A vector, or the option of one.
    template <class Vector, class Target>
    bool readVectors(const std::optional<Vector>& expected, bool (VrexStreamDecoder::*operation)(Target&)) {
        Target value{};
        const bool good = (m_decoder.*operation)(value);
        const std::optional<Vector> read = value;
        same = same && read.has_value() == expected.has_value() && (!read || sum(*read) == sum(*expected));
        return good;
    }
    template <class Number>
    bool readNumber(const Node& node, bool (VrexStreamDecoder::*operation)(Number&)) {
        return readValue(static_cast<Number>(node.number), operation);
    }
    template <class Element>
    bool readCount(const Node& node, bool (VrexStreamDecoder::*operation)(std::vector<Element>&)) {
        std::vector<Element> list;
        const bool good = (m_decoder.*operation)(list);
        same = same && list.size() == node.numbers.size();
        return good;
    }

    Bytes m_bytes;
    ProbeDecoder m_decoder;
};

TEST(VrexStream, RandomTreesAreWrittenAsDefinedAndReadBack) {
    Trees trees(1);
    for (int i = 0; i < 1'000; ++i) {
        const Node tree = trees.tree();
        const Bytes bytes = written([&](auto& encoder) { return writeNode(encoder, tree); });
        ASSERT_EQ(bytes, bytesOf(tree));
        Reader reader(bytes);
        ASSERT_TRUE(reader.read(tree));
        ASSERT_TRUE(reader.same);
        ASSERT_TRUE(reader.isAtEnd());
    }
}

TEST(VrexStream, EveryPrefixOfARandomTreeFails) {
    Trees trees(2);
    for (int i = 0; i < 60; ++i) {
        const Node tree = trees.tree();
        const Bytes bytes = bytesOf(tree);
        for (std::size_t size = 0; size < bytes.size(); ++size) {
            // A copy of its own, so that a read beyond it is found.
            Reader reader(Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)));
            ASSERT_FALSE(reader.read(tree));
        }
    }
}

TEST(VrexStream, NoChangedByteOfARandomTreeGoesBeyondTheInput) {
    Trees trees(3);
    std::size_t refused = 0;
    for (int i = 0; i < 8; ++i) {
        const Node tree = trees.tree();
        const Bytes bytes = bytesOf(tree);
        for (std::size_t place = 0; place < bytes.size(); ++place) {
            for (int change = 1; change < 256; ++change) {
                Bytes changed = bytes;
                changed[place] ^= static_cast<std::uint8_t>(change);
                Reader reader(changed);
                // Either it fails, or the byte belonged to a value and all of the stream was read.
                if (reader.read(tree)) {
                    ASSERT_TRUE(reader.isAtEnd());
                } else {
                    ++refused;
                }
            }
        }
    }
    EXPECT_GT(refused, 0U);
}

} // namespace
} // namespace nsStreamProbe
