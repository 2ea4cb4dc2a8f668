#include "data/serialization/VrexStreamEncoder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "support/Numbered.h"
#include "support/StreamProbe.h"

namespace nsStreamProbe {
namespace {

const Bytes EMPTY_BLOCK{0x30, 0, 0, 0, 0};

std::shared_ptr<VrexGeometryVariable> variable(std::uint64_t id, double value) {
    return numbered(VrexGeometryVariable::create(value), id);
}

TEST(VrexStreamEncoder, PrimitivesAreLittleEndianWithoutPadding) {
    EXPECT_EQ(written([](auto& e) { return e.writeTag(); }), Bytes{0x30});
    EXPECT_EQ(written([](auto& e) { return e.writeBool(true) && e.writeBool(false) && e.writeU8(0xFE); }),
              (Bytes{1, 0, 0xFE}));
    EXPECT_EQ(written([](auto& e) { return e.writeU32(0x01020304); }), (Bytes{4, 3, 2, 1}));
    EXPECT_EQ(written([](auto& e) { return e.writeI32(-2); }), (Bytes{0xFE, 0xFF, 0xFF, 0xFF}));
    EXPECT_EQ(written([](auto& e) { return e.writeU64(0x0102030405060708); }),
              (Bytes{8, 7, 6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(written([](auto& e) { return e.writeF64(-2.0); }), (Bytes{0, 0, 0, 0, 0, 0, 0, 0xC0}));
    EXPECT_EQ(written([](auto& e) {
                  return e.writeVector({1.5, -2.0, 0.0});
              }),
              join({f64(1.5), f64(-2.0), f64(0.0)}));
    EXPECT_EQ(written([](auto& e) { return e.writeVector2({1.5, -0.0}); }), join({f64(1.5), f64(-0.0)}));
}

TEST(VrexStreamEncoder, StringsCountTheirTerminator) {
    EXPECT_EQ(written([](auto& e) { return e.writeString(""); }), (Bytes{1, 0, 0, 0, 0}));
    EXPECT_EQ(written([](auto& e) { return e.writeString("ab"); }), (Bytes{3, 0, 0, 0, 'a', 'b', 0}));
}

TEST(VrexStreamEncoder, AStringWithAZeroByteIsRefused) {
    VrexOutputLength output;
    ProbeEncoder encoder(&output);
    EXPECT_FALSE(encoder.writeString(std::string("a\0b", 3)));
    EXPECT_EQ(output.length(), 0U);
}

TEST(VrexStreamEncoder, ABlockIsTheTagTheLengthAndThePayload) {
    EXPECT_EQ(written([](auto& e) { return e.beginBlock() && e.writeF64(1.0) && e.endBlock(); }),
              (Bytes{0x30, 8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xF0, 0x3F}));
    EXPECT_EQ(written([](auto& e) { return e.writeEmptyBlock(); }), EMPTY_BLOCK);
}

TEST(VrexStreamEncoder, NestedBlocksGetTheRightLengths) {
    const Bytes bytes = written([](auto& e) {
        return e.beginBlock() && e.writeU8(7) && e.beginBlock() && e.writeU32(1) && e.endBlock() &&
               e.writeU8(9) && e.endBlock();
    });
    // The outer length: the inner one, 5 for the inner frame, 2 for the bytes around it.
    EXPECT_EQ(bytes, (Bytes{0x30, 11, 0, 0, 0, 7, 0x30, 4, 0, 0, 0, 1, 0, 0, 0, 9}));
}

TEST(VrexStreamEncoder, EndingABlockThatIsNotOpenDoesNothing) {
    VrexOutputLength output;
    ProbeEncoder encoder(&output);
    EXPECT_TRUE(encoder.endBlock());
    EXPECT_EQ(output.length(), 0U);
}

TEST(VrexStreamEncoder, BlocksNestToAnyDepth) {
    constexpr int depth = 100'000;
    const Bytes bytes = written([](auto& e) {
        bool good = true;
        for (int i = 0; i < depth; ++i) {
            good = good && e.beginBlock();
        }
        good = good && e.writeU8(5);
        for (int i = 0; i < depth; ++i) {
            good = good && e.endBlock();
        }
        return good;
    });
    ASSERT_EQ(bytes.size(), 5U * depth + 1U);
    EXPECT_EQ(Bytes(bytes.begin() + 1, bytes.begin() + 5), little(5U * (depth - 1) + 1, 4));
    EXPECT_EQ(Bytes(bytes.end() - 6, bytes.end()), (Bytes{0x30, 1, 0, 0, 0, 5}));
}

TEST(VrexStreamEncoder, OptionsAreABlockOrTheEmptyBlock) {
    EXPECT_EQ(written([](auto& e) { return e.writeOptionalF64(2.5); }), block(f64(2.5)));
    EXPECT_EQ(written([](auto& e) { return e.writeOptionalF64({}); }), EMPTY_BLOCK);
    EXPECT_EQ(written([](auto& e) { return e.writeOptionalVector(VrexVector3DT<double>(1.0, 2.0, 3.0)); }),
              block(join({f64(1.0), f64(2.0), f64(3.0)})));
    EXPECT_EQ(written([](auto& e) { return e.writeOptionalVector({}); }), EMPTY_BLOCK);
    EXPECT_EQ(written([](auto& e) { return e.writeOptionalVector2(VrexVector2DT<double>(1.0, 2.0)); }),
              block(join({f64(1.0), f64(2.0)})));
    EXPECT_EQ(written([](auto& e) { return e.writeOptionalVector2({}); }), EMPTY_BLOCK);
}

TEST(VrexStreamEncoder, ListsAreABlockOfTheirElementsOrTheEmptyBlock) {
    EXPECT_EQ(written([](auto& e) { return e.writeF64List({1.0, 2.0}); }), block(join({f64(1.0), f64(2.0)})));
    EXPECT_EQ(written([](auto& e) { return e.writeF64List({}); }), EMPTY_BLOCK);
    const std::vector<std::uint64_t> ids{5, 6};
    EXPECT_EQ(written([&](auto& e) { return e.writeIdList(ids); }),
              block(join({little(5, 8), little(6, 8)})));
    EXPECT_EQ(written([&](auto& e) { return e.writeIdList(std::vector<std::uint64_t>{}); }), EMPTY_BLOCK);
    const std::vector<std::shared_ptr<VrexGeometryVariable>> objects{variable(5, 1.5), nullptr,
                                                                     variable(6, 2.5)};
    EXPECT_EQ(written([&](auto& e) { return e.writeIdList(objects); }),
              block(join({little(5, 8), little(6, 8)})));
    EXPECT_EQ(written([&](auto& e) { return e.writeObjectList(objects); }),
              block(join({block(join({little(5, 8), f64(1.5)})), block(join({little(6, 8), f64(2.5)}))})));
    const std::vector<std::shared_ptr<VrexGeometryVariable>> nulls{nullptr, nullptr};
    EXPECT_EQ(written([&](auto& e) { return e.writeIdList(nulls); }), EMPTY_BLOCK);
    EXPECT_EQ(written([&](auto& e) { return e.writeObjectList(nulls); }), EMPTY_BLOCK);
}

TEST(VrexStreamEncoder, ADescriptorIsABlockOfObjectIndexAndName) {
    const VrexVariableDescriptor descriptor(variable(9, 1.0), 3, "r");
    const Bytes expected = block(join({little(9, 8), little(3, 4), nsStreamProbe::string("r")}));
    EXPECT_EQ(written([&](auto& e) { return e.writeDescriptor(descriptor); }), expected);
    EXPECT_EQ(written([&](auto& e) {
                  return e.writeDescriptorList({descriptor, descriptor});
              }),
              block(join({expected, expected})));
    EXPECT_EQ(written([&](auto& e) { return e.writeDescriptorList({}); }), EMPTY_BLOCK);
}

TEST(VrexStreamEncoder, ADescriptorWithoutAnObjectIsRefused) {
    VrexOutputLength output;
    ProbeEncoder encoder(&output);
    EXPECT_FALSE(encoder.writeDescriptor({nullptr, 0, "r"}));
    EXPECT_EQ(output.length(), 0U);
}

TEST(VrexStreamEncoder, ABufferThatIsTooShortIsRefusedWhereverItEnds) {
    const std::vector<std::shared_ptr<VrexGeometryVariable>> objects{variable(5, 1.5), variable(6, 2.5)};
    const nsStreamProbe::Write write = [&](VrexStreamEncoder& e) {
        return e.beginBlock() && e.writeObjectList(objects) && e.writeOptionalF64({}) &&
               e.writeString("name") && e.writeF64List({1.0, 2.0}) && e.endBlock();
    };
    const Bytes whole = written(write);
    for (std::uint32_t size = 0; size < whole.size(); ++size) {
        Bytes bytes(size);
        VrexOutputMemory output(bytes.data(), size);
        ProbeEncoder encoder(&output);
        EXPECT_FALSE(write(encoder)) << size;
    }
}

TEST(VrexStreamEncoder, BlocksThatAreGivenUpHaveTheLengthNull) {
    const nsStreamProbe::Write write = [](VrexStreamEncoder& e) {
        const bool good = e.beginBlock() && e.writeU8(1) && e.beginBlock() && e.writeU8(2) &&
                          e.beginBlock() && e.writeU8(3);
        EXPECT_EQ(e.openBlocks(), 3U);
        e.unwindBlocks(1);
        EXPECT_EQ(e.openBlocks(), 1U);
        return good && e.writeU8(4) && e.endBlock();
    };
    EXPECT_EQ(written(write), block({1, 0x30, 0, 0, 0, 0, 2, 0x30, 0, 0, 0, 0, 3, 4}));
}

TEST(VrexStreamEncoder, FieldsAreWrittenTogetherOrNotAtAll) {
    const nsStreamProbe::Write write = [](VrexStreamEncoder& e) {
        return e.writeFields([](auto& fields) {
            fields.values(std::uint8_t{7}, 2.5);
            fields.block([&] { fields.string("ab"); });
        });
    };
    const Bytes whole = written(write);
    EXPECT_EQ(whole, join({Bytes{7}, f64(2.5), block(nsStreamProbe::string("ab"))}));
    Bytes bytes(whole.size() - 1, 0xFF);
    VrexOutputMemory output(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
    ProbeEncoder encoder(&output);
    EXPECT_FALSE(write(encoder));
    EXPECT_EQ(output.position(), 0U);
    EXPECT_EQ(bytes, Bytes(whole.size() - 1, 0xFF));
    EXPECT_FALSE(encoder.writeFields([](auto& fields) { fields.string(std::string("a\0b", 3)); }));
}

/// An output of the application's.
class GrowingOutput final : public VrexOutputStream {
public:
    std::uint32_t write(const void* data, std::uint32_t count) override {
        const auto* const bytes = static_cast<const std::uint8_t*>(data);
        m_bytes.resize(std::max<std::size_t>(m_bytes.size(), m_position + count));
        std::copy(bytes, bytes + count, m_bytes.begin() + m_position);
        m_position += count;
        return count;
    }
    std::uint32_t length() override { return static_cast<std::uint32_t>(m_bytes.size()); }
    std::uint32_t position() override { return m_position; }
    std::uint32_t seek(std::uint32_t position) override { return std::exchange(m_position, position); }
    const Bytes& bytes() const { return m_bytes; }

private:
    Bytes m_bytes;
    std::uint32_t m_position = 0;
};

TEST(VrexStreamEncoder, AnyOutputGetsTheSameBytes) {
    const std::vector<std::shared_ptr<VrexGeometryVariable>> objects{variable(5, 1.5), variable(6, 2.5)};
    const nsStreamProbe::Write write = [&](VrexStreamEncoder& e) {
        return e.beginBlock() && e.writeObjectList(objects) && e.writeOptionalF64({}) &&
               e.writeString("name") && e.writeF64List({1.0, 2.0}) && e.endBlock();
    };
    GrowingOutput output;
    ProbeEncoder encoder(&output);
    EXPECT_TRUE(write(encoder));
    EXPECT_EQ(output.bytes(), written(write));
}

TEST(VrexStreamEncoder, WithoutAnOutputEverythingIsRefused) {
    ProbeEncoder encoder(nullptr);
    EXPECT_FALSE(encoder.writeU8(1));
    EXPECT_FALSE(encoder.writeString(""));
    EXPECT_FALSE(encoder.writeF64List({1.0}));
    EXPECT_FALSE(encoder.writeEmptyBlock());
    EXPECT_FALSE(encoder.beginBlock());
    EXPECT_TRUE(encoder.endBlock());
}

/// An output that takes everything in, keeps nothing, and stands where a test wants it.
class FarOutput : public VrexOutputStream {
public:
    explicit FarOutput(std::uint32_t position) : m_position(position) {}
    std::uint32_t write(const void* /*data*/, std::uint32_t count) override {
        m_position += count;
        return count;
    }
    std::uint32_t length() override { return m_position; }
    std::uint32_t position() override { return m_position; }
    std::uint32_t seek(std::uint32_t position) override { return std::exchange(m_position, position); }

private:
    std::uint32_t m_position;
};

TEST(VrexStreamEncoder, ABlockWhoseLengthWouldStandBeyondTheLargestPositionIsRefused) {
    constexpr std::uint32_t most = std::numeric_limits<std::uint32_t>::max();
    FarOutput last(most - 5);
    ProbeEncoder fits(&last);
    EXPECT_TRUE(fits.beginBlock());
    EXPECT_EQ(last.position(), most);
    EXPECT_TRUE(fits.endBlock());
    FarOutput beyond(most - 4);
    ProbeEncoder encoder(&beyond);
    EXPECT_FALSE(encoder.beginBlock());
    EXPECT_EQ(beyond.position(), most - 3); // not at the front again
    EXPECT_TRUE(encoder.endBlock());
    EXPECT_EQ(beyond.position(), most - 3);
}

/// Takes nothing in, so that a stream beyond all memory can be measured.
TEST(VrexStreamEncoder, MeasuringBeyondTheLargestLengthIsRefused) {
    VrexOutputLength output;
    ProbeEncoder encoder(&output);
    output.write(nullptr, std::numeric_limits<std::uint32_t>::max() - 12);
    EXPECT_TRUE(encoder.writeEmptyBlock());
    EXPECT_FALSE(encoder.writeF64(1.0));
    EXPECT_TRUE(encoder.beginBlock());
    EXPECT_TRUE(encoder.endBlock());
    EXPECT_FALSE(encoder.writeF64List({1.0}));
}

} // namespace
} // namespace nsStreamProbe
