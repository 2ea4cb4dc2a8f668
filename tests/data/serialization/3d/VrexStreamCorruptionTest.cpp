// Streams of all kinds, changed in every way that one bit or one length can be. Whatever comes of it,
// decoding ends with true, false or the one exception; the sanitizers see to the rest.

#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/3d/VrexTransform3D.h"
#include "data/VrexBaseConstraint.h"
#include "data/graph/VrexConnectedComponent.h"
#include "data/serialization/3d/VrexStreamGraphDecoder3D.h"
#include "support/StreamOfAllKinds.h"

namespace {

using nsStreamObjects::block;
using nsStreamObjects::Bytes;
using nsStreamObjects::join;

enum class Outcome { Read, Refused, Thrown };

using Decode = std::function<bool(const unsigned char*, unsigned int)>;

/// From a buffer of just this size, so that a read beyond it is found.
Outcome outcomeOf(const Decode& decode, const Bytes& bytes) {
    const Bytes exact(bytes.begin(), bytes.end());
    try {
        return decode(exact.data(), static_cast<unsigned int>(exact.size())) ? Outcome::Read
                                                                             : Outcome::Refused;
    } catch (const std::bad_optional_access&) {
        return Outcome::Thrown;
    }
}

bool decodeFlat(const unsigned char* buffer, unsigned int size) {
    VrexStreamGraphDecoder3D decoder;
    VrexStreamGraphDecoder::Geometries geometries;
    VrexStreamGraphDecoder::Constraints constraints;
    return decoder.decodeConstraintGraph(buffer, size, geometries, constraints);
}

bool decodeComponents(const unsigned char* buffer, unsigned int size) {
    VrexStreamGraphDecoder::Components components;
    return VrexStreamGraphDecoder3D().decodeConstraintGraphs(buffer, size, components);
}

bool decodeDrag(const unsigned char* buffer, unsigned int size) {
    VrexStreamGraphDecoder::Geometries geometries;
    VrexTransform3D transform;
    return VrexStreamGraphDecoder3D().decodeDragData(buffer, size, geometries, transform);
}

struct Form {
    const char* name;
    Decode decode;
    Bytes bytes;
};

std::vector<Form> forms() {
    namespace kinds = nsStreamOfAllKinds;
    const Bytes simple = kinds::simpleGeometries();
    const Bytes fixation = kinds::bound(4, {kinds::POINT}, nsStreamObjects::u32(0));
    return {
        {"flat", decodeFlat, kinds::flat(kinds::geometries(), kinds::constraints())},
        {"components", decodeComponents,
         block(join({kinds::component(1, simple, fixation), kinds::component(1, simple, {})}))},
        {"drag", decodeDrag,
         kinds::drag(simple, join({kinds::transform(kinds::LINE, 1.0), kinds::transform(kinds::POINT, 2.0)}),
                     kinds::dragParameter(kinds::CIRCLE, 1.5, 1))}};
}

std::uint32_t numberAt(const Bytes& bytes, std::size_t place) {
    std::uint32_t number = 0;
    std::memcpy(&number, bytes.data() + place, sizeof number);
    return number;
}

Bytes withNumber(Bytes bytes, std::size_t place, std::uint32_t number) {
    std::memcpy(bytes.data() + place, &number, sizeof number);
    return bytes;
}

TEST(VrexStream, StreamsOfAllKindsAreRead) {
    for (const Form& form : forms()) {
        EXPECT_EQ(outcomeOf(form.decode, form.bytes), Outcome::Read) << form.name;
    }
}

TEST(VrexStream, EveryTruncationIsRefused) {
    for (const Form& form : forms()) {
        for (std::size_t size = 0; size < form.bytes.size(); ++size) {
            const Bytes front(form.bytes.begin(), form.bytes.begin() + static_cast<std::ptrdiff_t>(size));
            ASSERT_EQ(outcomeOf(form.decode, front), Outcome::Refused) << form.name << size;
        }
    }
}

/// The outermost length says that all is there.
TEST(VrexStream, EveryTruncationInsideTheOutermostBlockIsRefusedOrEndsWithAWholePart) {
    for (const Form& form : forms()) {
        std::size_t read = 0;
        for (std::size_t size = 5; size < form.bytes.size(); ++size) {
            Bytes front(form.bytes.begin(), form.bytes.begin() + static_cast<std::ptrdiff_t>(size));
            front = withNumber(std::move(front), 1, static_cast<std::uint32_t>(size - 5));
            const Outcome outcome = outcomeOf(form.decode, front);
            ASSERT_NE(outcome, Outcome::Thrown) << form.name << size;
            read += outcome == Outcome::Read ? 1U : 0U;
        }
        // No component, or one of the two.
        EXPECT_EQ(read, form.name == std::string("components") ? 2U : 0U);
    }
}

TEST(VrexStream, EveryFlippedBitIsReadRefusedOrThrown) {
    for (const Form& form : forms()) {
        std::size_t counts[3]{};
        Bytes bytes = form.bytes;
        for (std::size_t bit = 0; bit < 8 * bytes.size(); ++bit) {
            const auto mask = static_cast<std::uint8_t>(1U << bit % 8);
            bytes[bit / 8] ^= mask;
            ++counts[static_cast<int>(outcomeOf(form.decode, bytes))];
            bytes[bit / 8] ^= mask;
        }
        EXPECT_GT(counts[static_cast<int>(Outcome::Read)], 0U) << "numbers, labels";
        EXPECT_GT(counts[static_cast<int>(Outcome::Refused)], 0U);
        EXPECT_GT(counts[static_cast<int>(Outcome::Thrown)], 0U) << "object kinds";
    }
}

/// Whether a length may stand there: behind a tag, or of a text that ends in its terminator.
bool mayBeLength(const Bytes& bytes, std::size_t place) {
    const std::uint32_t number = numberAt(bytes, place);
    const std::size_t end = place + 4 + number;
    return bytes[place - 1] == 0x30 || (number != 0 && end <= bytes.size() && bytes[end - 1] == 0);
}

TEST(VrexStream, EveryLengthMayBeAnyOther) {
    for (const Form& form : forms()) {
        std::size_t tried = 0;
        std::size_t refused = 0;
        for (std::size_t place = 1; place + 4 <= form.bytes.size(); ++place) {
            if (!mayBeLength(form.bytes, place)) {
                continue;
            }
            const std::uint32_t number = numberAt(form.bytes, place);
            for (const std::uint32_t other : {0U, 1U, number - 1, number + 1, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
                ++tried;
                const Bytes changed = withNumber(form.bytes, place, other);
                refused += outcomeOf(form.decode, changed) == Outcome::Refused ? 1U : 0U;
            }
        }
        EXPECT_GT(tried, form.bytes.size() / 10) << form.name;
        EXPECT_GT(refused, tried / 4) << form.name;
    }
}

} // namespace
