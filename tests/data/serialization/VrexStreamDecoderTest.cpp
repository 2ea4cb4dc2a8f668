#include "data/serialization/VrexStreamDecoder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "support/Numbered.h"
#include "support/ProbeConstraint.h"
#include "support/StreamProbe.h"

namespace nsStreamProbe {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::shared_ptr<VrexGeometryVariable> variable(std::uint64_t id, double value) {
    return numbered(VrexGeometryVariable::create(value), id);
}

/// Expects `read` to fail on these bytes and to leave the position where it was.
void expectNotRead(const Bytes& bytes, const std::function<bool(ProbeDecoder&)>& read) {
    Bytes shifted{0xAA};
    append(shifted, bytes);
    ProbeDecoder decoder(shifted);
    std::uint8_t first = 0;
    ASSERT_TRUE(decoder.readU8(first));
    EXPECT_FALSE(read(decoder));
    EXPECT_EQ(decoder.position(), 1U);
}

TEST(VrexStreamDecoder, ReadsBackThePrimitives) {
    const Bytes bytes = written([](auto& e) {
        return e.writeTag() && e.writeBool(true) && e.writeU8(200) && e.writeU32(4'000'000'000) &&
               e.writeI32(-7) && e.writeU64(18446744073709551615ULL) && e.writeF64(-0.1) &&
               e.writeString("half") && e.writeString("") && e.writeVector({1.0, 2.0, 3.0}) &&
               e.writeVector2({4.0, 5.0});
    });
    ProbeDecoder decoder(bytes);
    bool flag = false;
    std::uint8_t u8 = 0;
    std::uint32_t u32 = 0;
    std::int32_t i32 = 0;
    std::uint64_t u64 = 0;
    double number = 0.0;
    std::string text;
    std::string empty = "x";
    VrexVector3DT<double> vector;
    VrexVector2DT<double> pair;
    ASSERT_TRUE(decoder.expectTag() && decoder.readBool(flag) && decoder.readU8(u8) && decoder.readU32(u32) &&
                decoder.readI32(i32) && decoder.readU64(u64) && decoder.readF64(number) &&
                decoder.readString(text) && decoder.readString(empty) && decoder.readVector(vector) &&
                decoder.readVector2(pair));
    EXPECT_TRUE(decoder.isAtEnd());
    EXPECT_TRUE(flag);
    EXPECT_EQ(u8, 200U);
    EXPECT_EQ(u32, 4'000'000'000U);
    EXPECT_EQ(i32, -7);
    EXPECT_EQ(u64, 18446744073709551615ULL);
    EXPECT_EQ(number, -0.1);
    EXPECT_EQ(text, "half");
    EXPECT_EQ(empty, "");
    EXPECT_EQ(vector.z(), 3.0);
    EXPECT_EQ(pair.y(), 5.0);
}

TEST(VrexStreamDecoder, ReadingPastTheEndFailsAndLeavesPositionAndValue) {
    std::uint8_t u8 = 9;
    std::uint32_t u32 = 9;
    std::int32_t i32 = 9;
    std::uint64_t u64 = 9;
    double number = 9.0;
    bool flag = true;
    std::string text = "kept";
    VrexVector3DT<double> vector(9.0, 9.0, 9.0);
    VrexVector2DT<double> pair(9.0, 9.0);
    expectNotRead({}, [&](auto& d) { return d.expectTag(); });
    expectNotRead({0x31}, [&](auto& d) { return d.expectTag(); });
    expectNotRead({}, [&](auto& d) { return d.readU8(u8); });
    expectNotRead({}, [&](auto& d) { return d.readBool(flag); });
    expectNotRead(Bytes(3), [&](auto& d) { return d.readU32(u32); });
    expectNotRead(Bytes(3), [&](auto& d) { return d.readI32(i32); });
    expectNotRead(Bytes(7), [&](auto& d) { return d.readU64(u64); });
    expectNotRead(Bytes(7), [&](auto& d) { return d.readF64(number); });
    expectNotRead(Bytes(23), [&](auto& d) { return d.readVector(vector); });
    expectNotRead(Bytes(15), [&](auto& d) { return d.readVector2(pair); });
    expectNotRead({3, 0, 0, 0, 'a', 0}, [&](auto& d) { return d.readString(text); });
    EXPECT_TRUE(u8 == 9 && u32 == 9 && i32 == 9 && u64 == 9 && number == 9.0 && flag && text == "kept");
    EXPECT_TRUE(vector.x() == 9.0 && pair.x() == 9.0);
}

TEST(VrexStreamDecoder, AStringNeedsACountAndATerminatorWithinIt) {
    std::string text = "kept";
    const auto read = [&](auto& d) { return d.readString(text); };
    expectNotRead({0, 0, 0, 0, 0}, read);
    expectNotRead({2, 0, 0, 0, 'a', 'b', 0}, read);
    expectNotRead({0xFF, 0xFF, 0xFF, 0xFF, 'a', 0}, read);
    EXPECT_EQ(text, "kept");
}

TEST(VrexStreamDecoder, AStringEndsAtItsFirstZeroByteAndIsSteppedOverWhole) {
    const Bytes bytes{4, 0, 0, 0, 'a', 0, 'b', 0, 77};
    ProbeDecoder decoder(bytes);
    std::string text;
    std::uint8_t next = 0;
    EXPECT_TRUE(decoder.readString(text) && decoder.readU8(next));
    EXPECT_EQ(text, "a");
    EXPECT_EQ(next, 77U);
}

TEST(VrexStreamDecoder, OptionsAreEmptyOrExactlyOneValue) {
    std::optional<double> number = 1.0;
    std::optional<VrexVector3DT<double>> vector;
    std::optional<VrexVector2DT<double>> pair;
    const Bytes bytes = written([](auto& e) {
        return e.writeOptionalF64({}) && e.writeOptionalVector(VrexVector3DT<double>(1.0, 2.0, 3.0)) &&
               e.writeOptionalVector2(VrexVector2DT<double>(4.0, 5.0));
    });
    ProbeDecoder decoder(bytes);
    ASSERT_TRUE(decoder.readOptionalF64(number) && decoder.readOptionalVector(vector) &&
                decoder.readOptionalVector2(pair));
    EXPECT_FALSE(number);
    EXPECT_EQ(vector->z(), 3.0);
    EXPECT_EQ(pair->y(), 5.0);
    number = 3.0;
    for (const std::size_t size : {1U, 7U, 9U, 16U}) {
        expectNotRead(block(Bytes(size)), [&](auto& d) { return d.readOptionalF64(number); });
    }
    expectNotRead(block(Bytes(16)), [&](auto& d) { return d.readOptionalVector(vector); });
    expectNotRead(block(Bytes(24)), [&](auto& d) { return d.readOptionalVector2(pair); });
    EXPECT_EQ(number, 3.0);
    EXPECT_EQ(vector->z(), 3.0);
    EXPECT_EQ(pair->y(), 5.0);
}

TEST(VrexStreamDecoder, ListsOfNumbersReplaceWhatWasThere) {
    std::vector<double> numbers{9.0};
    std::vector<std::uint64_t> ids{9};
    const Bytes bytes = written([](auto& e) {
        return e.writeF64List({1.0, 2.0}) && e.writeIdList(std::vector<std::uint64_t>{5}) &&
               e.writeF64List({});
    });
    ProbeDecoder decoder(bytes);
    ASSERT_TRUE(decoder.readF64List(numbers) && decoder.readIdList(ids));
    EXPECT_THAT(numbers, ElementsAre(1.0, 2.0));
    EXPECT_THAT(ids, ElementsAre(5));
    ASSERT_TRUE(decoder.readF64List(numbers));
    EXPECT_THAT(numbers, IsEmpty());
    EXPECT_TRUE(decoder.isAtEnd());
    numbers = {3.0};
    expectNotRead(block(Bytes(12)), [&](auto& d) { return d.readF64List(numbers); });
    expectNotRead(block(Bytes(12)), [&](auto& d) { return d.readIdList(ids); });
    EXPECT_THAT(numbers, ElementsAre(3.0));
    EXPECT_THAT(ids, ElementsAre(5));
}

TEST(VrexStreamDecoder, ABlockBeyondItsSurroundingsIsNotOpened) {
    std::vector<double> numbers;
    expectNotRead({0x30, 8, 0, 0, 0, 1, 2, 3}, [&](auto& d) { return d.readF64List(numbers); });
    expectNotRead({0x30, 0xFF, 0xFF, 0xFF, 0xFF}, [&](auto& d) { return d.readF64List(numbers); });
    // The inner block reaches past the outer one, though not past the input.
    Bytes bytes = block(Bytes{0x30, 8, 0, 0, 0, 0, 0, 0, 0});
    bytes.resize(40);
    expectNotRead(bytes, [&](auto& d) { return d.readBlock([&] { return d.readF64List(numbers); }); });
}

TEST(VrexStreamDecoder, ReadsStopAtTheEndOfTheBlock) {
    Bytes bytes = block(Bytes(4));
    bytes.resize(40);
    double number = 0.0;
    std::string text;
    expectNotRead(bytes, [&](auto& d) { return d.readBlock([&] { return d.readF64(number); }); });
    expectNotRead(bytes, [&](auto& d) { return d.readBlock([&] { return d.readString(text); }); });
}

TEST(VrexStreamDecoder, ABlockThatIsNotReadToItsEndFails) {
    std::uint8_t u8 = 0;
    expectNotRead(block(Bytes(2)), [&](auto& d) { return d.readBlock([&] { return d.readU8(u8); }); });
    expectNotRead(block(Bytes(2)), [&](auto& d) { return d.readList([] { return true; }); });
}

TEST(VrexStreamDecoder, AnExceptionLeavesTheBlockAsARefusalDoes) {
    Bytes bytes = block(Bytes(2));
    bytes.push_back(5);
    ProbeDecoder decoder(bytes);
    EXPECT_THROW(decoder.readBlock([]() -> bool { throw std::bad_optional_access(); }),
                 std::bad_optional_access);
    EXPECT_EQ(decoder.position(), 0U);
    std::uint64_t all = 0;
    EXPECT_TRUE(decoder.readU64(all));
}

TEST(VrexStreamDecoder, ObjectsAreReadAndKnown) {
    const std::vector<std::shared_ptr<VrexBaseObject>> objects{variable(5, 1.5), variable(6, 2.5)};
    const Bytes bytes = written([&](auto& e) { return e.writeObjectList(objects); });
    ProbeDecoder decoder(bytes);
    std::vector<std::shared_ptr<VrexBaseObject>> read;
    ASSERT_TRUE(decoder.readObjectList(read));
    ASSERT_EQ(read.size(), 2U);
    EXPECT_EQ(read[1]->getID(), 6U);
    EXPECT_EQ(decoder.findGeometry(5), read[0]);
    EXPECT_EQ(decoder.findGeometry(7), nullptr);
    EXPECT_TRUE(decoder.isAtEnd());
    // An element that crosses the end of the list.
    Bytes crossing = bytes;
    crossing[1] -= 1;
    expectNotRead(crossing, [&](auto& d) { return d.readObjectList(read); });
    EXPECT_EQ(read.size(), 2U);
}

TEST(VrexStreamDecoder, AGeometryAndAConstraintMayHaveOneIdentifierAndNewerObjectsReplaceOlder) {
    ProbeDecoder decoder(nullptr, 0);
    const auto constraint = numbered(std::make_shared<ProbeConstraint>(), 5);
    decoder.enterObject(constraint);
    EXPECT_EQ(decoder.findObject(5), constraint);
    EXPECT_EQ(decoder.findGeometry(5), nullptr);
    decoder.enterObject(variable(5, 1.0));
    const auto newer = variable(5, 2.0);
    decoder.enterObject(newer);
    decoder.enterObject(nullptr);
    EXPECT_EQ(decoder.findGeometry(5), newer);
    EXPECT_EQ(decoder.findConstraint(5), constraint);
    EXPECT_EQ(decoder.findObject(5), newer);
    EXPECT_EQ(decoder.findConstraint(6), nullptr);
    EXPECT_EQ(decoder.findObject(6), nullptr);
}

TEST(VrexStreamDecoder, DescriptorsNameKnownObjects) {
    const auto known = variable(9, 1.0);
    const VrexVariableDescriptor descriptor(known, 0, "r");
    const Bytes bytes = written([&](auto& e) {
        return e.writeDescriptor(descriptor) && e.writeDescriptorList({descriptor, descriptor});
    });
    std::vector<VrexVariableDescriptor> list;
    expectNotRead(bytes, [&](auto& d) { return d.readDescriptor(list); });
    EXPECT_THAT(list, IsEmpty());
    ProbeDecoder decoder(bytes);
    decoder.enterObject(known);
    ASSERT_TRUE(decoder.readDescriptor(list));
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].object(), known);
    EXPECT_EQ(list[0].index(), 0U);
    EXPECT_EQ(list[0].variableName(), "r");
    ASSERT_TRUE(decoder.readDescriptorList(list));
    EXPECT_EQ(list.size(), 2U);
}

TEST(VrexStreamDecoder, OnlyOfAConstraintADescriptorMayNameAParameterThatIsNotThere) {
    const Bytes bytes = block(join({little(9, 8), little(1, 4), nsStreamProbe::string("r")}));
    std::vector<VrexVariableDescriptor> list;
    expectNotRead(bytes, [&](auto& d) {
        d.enterObject(variable(9, 1.0));
        return d.readDescriptor(list);
    });
    ProbeDecoder decoder(bytes);
    decoder.enterObject(numbered(std::make_shared<ProbeConstraint>(), 9));
    ASSERT_TRUE(decoder.readDescriptor(list));
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].index(), 1U);
}

TEST(VrexStreamDecoder, PackedValuesAreReadTogetherOrNotAtAll) {
    const Bytes bytes = join({little(7, 4), f64(1.0), f64(2.0), f64(3.0), little(0xFFFFFFFF, 4)});
    std::uint64_t id = 5;
    std::uint32_t number = 6;
    VrexVector3DT<double> vector;
    VrexGeometryStatus status{};
    expectNotRead(bytes, [&](auto& d) { return d.readPacked(number, vector, status, id); });
    EXPECT_EQ(number, 6U);
    EXPECT_EQ(id, 5U);
    EXPECT_EQ(vector.z(), 0.0);
    ProbeDecoder decoder(bytes);
    ASSERT_TRUE(decoder.readPacked(number, vector, status));
    EXPECT_EQ(number, 7U);
    EXPECT_EQ(vector.x(), 1.0);
    EXPECT_EQ(vector.z(), 3.0);
    EXPECT_EQ(status, VrexGeometryStatus::Unknown);
    EXPECT_TRUE(decoder.isAtEnd());
}

TEST(VrexStreamDecoder, ADescriptorHasToFillItsBlock) {
    std::vector<VrexVariableDescriptor> list;
    const auto read = [&](auto& d) {
        d.enterObject(variable(9, 1.0));
        return d.readDescriptor(list);
    };
    const Bytes content = join({little(9, 8), little(0, 4), nsStreamProbe::string("r")});
    expectNotRead(block(join({content, Bytes(1)})), read);
    expectNotRead(block(Bytes(content.begin(), content.end() - 1)), read);
    EXPECT_THAT(list, IsEmpty());
}

TEST(VrexStreamDecoder, WithoutInputNothingIsRead) {
    ProbeDecoder decoder(nullptr, 8);
    std::uint8_t byte = 0;
    EXPECT_FALSE(decoder.readU8(byte));
    EXPECT_FALSE(decoder.expectTag());
    EXPECT_TRUE(decoder.isAtEnd());
}

} // namespace
} // namespace nsStreamProbe
