// Ten megabytes of numbers in nested blocks, written and read: a hundred blocks of ten lists of 1250 numbers.
// The peer copies the same lists to and from one buffer. A median of 10 ms is 1 GB of numbers a second.
//
// And a system of 100,000 objects. The peer is FlatBuffers, where it is installed, with the same fields; the
// limit is a plain copy of the stream into a buffer of its own. The context line tells the size of the
// stream.

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "RatioReport.h"
#include "StreamSystem.h"
#include "data/VrexBaseObject.h"
#include "data/serialization/3d/VrexStreamEncoder3D.h"
#include "data/serialization/3d/VrexStreamGraphDecoder3D.h"
#include "data/serialization/3d/VrexStreamGraphEncoder3D.h"
#include "data/serialization/VrexOutputLength.h"
#include "data/serialization/VrexOutputMemory.h"
#include "data/serialization/VrexStreamDecoder.h"
#include "data/serialization/VrexStreamEncoder.h"

#ifdef VREX_HAS_FLATBUFFERS
#include "StreamPeer.h"
#include "StreamPeerDecoder.h"
#endif

namespace {

constexpr std::size_t BLOCKS = 100;
constexpr std::size_t LISTS = 10;
constexpr std::size_t NUMBERS = 1250;
constexpr std::size_t FRAMES = 5 + BLOCKS * (5 + LISTS * 5);
constexpr std::size_t SIZE = BLOCKS * LISTS * NUMBERS * sizeof(double);

using Block = std::vector<std::vector<double>>;

/// No objects are among the numbers.
class Encoder final : public VrexStreamEncoder {
public:
    using VrexStreamEncoder::VrexStreamEncoder;
    bool encodeObject(const std::shared_ptr<VrexBaseObject>& /*object*/) override { return false; }
};

class Decoder final : public VrexStreamDecoder {
public:
    using VrexStreamDecoder::VrexStreamDecoder;
    std::shared_ptr<VrexBaseObject> decodeObject() override { return nullptr; }
};

std::vector<Block> makeBlocks() {
    std::vector<Block> blocks(BLOCKS, Block(LISTS, std::vector<double>(NUMBERS)));
    double number = 0.0;
    for (Block& block : blocks) {
        for (auto& list : block) {
            for (double& each : list) {
                each = number += 0.25;
            }
        }
    }
    return blocks;
}

void require(bool good) {
    if (!good) {
        std::abort(); // the figure would mean nothing
    }
}

bool write(VrexOutputStream& output, const std::vector<Block>& blocks) {
    Encoder encoder(&output);
    return encoder.writeList(blocks, [&](const Block& block) {
        return encoder.writeList(block, [&](const auto& list) { return encoder.writeF64List(list); });
    });
}

void writePeer(benchmark::State& state) {
    const auto blocks = makeBlocks();
    std::vector<unsigned char> buffer(SIZE);
    for ([[maybe_unused]] auto step : state) {
        unsigned char* place = buffer.data();
        for (const Block& block : blocks) {
            for (const auto& list : block) {
                std::memcpy(place, list.data(), list.size() * sizeof(double));
                place += list.size() * sizeof(double);
            }
        }
        benchmark::ClobberMemory();
    }
}

/// Measured first, as a caller without a buffer does, and then written.
void writeStream(benchmark::State& state) {
    const auto blocks = makeBlocks();
    std::vector<unsigned char> buffer(SIZE + FRAMES);
    for ([[maybe_unused]] auto step : state) {
        VrexOutputLength measure;
        require(write(measure, blocks) && measure.length() == buffer.size());
        VrexOutputMemory output(buffer.data(), measure.length());
        require(write(output, blocks));
        benchmark::ClobberMemory();
    }
}

void readPeer(benchmark::State& state) {
    const std::vector<unsigned char> buffer(SIZE);
    auto blocks = makeBlocks();
    for ([[maybe_unused]] auto step : state) {
        const unsigned char* place = buffer.data();
        for (Block& block : blocks) {
            for (auto& list : block) {
                std::memcpy(list.data(), place, list.size() * sizeof(double));
                place += list.size() * sizeof(double);
            }
        }
        benchmark::ClobberMemory();
    }
}

bool read(Decoder& decoder, std::vector<Block>& blocks) {
    std::size_t block = 0;
    return decoder.readList([&] {
        std::size_t list = 0;
        Block& target = blocks[block++];
        return decoder.readList([&] { return decoder.readF64List(target[list++]); });
    });
}

void readStream(benchmark::State& state) {
    std::vector<unsigned char> buffer(SIZE + FRAMES);
    VrexOutputMemory output(buffer.data(), static_cast<std::uint32_t>(buffer.size()));
    auto blocks = makeBlocks();
    require(write(output, blocks));
    for ([[maybe_unused]] auto step : state) {
        Decoder decoder(buffer.data(), static_cast<std::uint32_t>(buffer.size()));
        require(read(decoder, blocks) && decoder.isAtEnd());
        benchmark::ClobberMemory();
    }
}

/// Into lists that are empty, as a reader makes them.
void readIntoNewLists(benchmark::State& state) {
    std::vector<unsigned char> buffer(SIZE + FRAMES);
    VrexOutputMemory output(buffer.data(), static_cast<std::uint32_t>(buffer.size()));
    require(write(output, makeBlocks()));
    for ([[maybe_unused]] auto step : state) {
        std::vector<Block> blocks(BLOCKS, Block(LISTS));
        Decoder decoder(buffer.data(), static_cast<std::uint32_t>(buffer.size()));
        require(read(decoder, blocks));
        benchmark::DoNotOptimize(blocks.data());
    }
}

const StreamSystem& streamSystem() {
    static const StreamSystem system;
    return system;
}

struct FreeBuffer {
    void operator()(unsigned char* buffer) const { VrexStreamGraphEncoder::freeBuffer(buffer); }
};
using Buffer = std::unique_ptr<unsigned char, FreeBuffer>;

Buffer encode(const StreamSystem& system, unsigned int& size) {
    VrexStreamGraphEncoder3D encoder;
    require(encoder.encodeConstraintGraph(system.geometries, system.constraints));
    return Buffer(encoder.dumpBuffer(size));
}

void setBytes(benchmark::State& state, unsigned int size) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * size);
}

/// Put in order, measured and written.
void encodeObjects(benchmark::State& state) {
    unsigned int size = 0;
    for ([[maybe_unused]] auto step : state) {
        benchmark::DoNotOptimize(encode(streamSystem(), size).get());
    }
    setBytes(state, size);
}

void copyStream(benchmark::State& state) {
    unsigned int size = 0;
    const Buffer stream = encode(streamSystem(), size);
    for ([[maybe_unused]] auto step : state) {
        const Buffer copy(static_cast<unsigned char*>(std::malloc(size)));
        std::memcpy(copy.get(), stream.get(), size);
        benchmark::DoNotOptimize(copy.get());
        benchmark::ClobberMemory();
    }
    setBytes(state, size);
}

/// The objects are dropped within the time, as are those of the peer.
void decodeObjects(benchmark::State& state) {
    unsigned int size = 0;
    const Buffer stream = encode(streamSystem(), size);
    for ([[maybe_unused]] auto step : state) {
        VrexStreamGraphDecoder::Geometries geometries;
        VrexStreamGraphDecoder::Constraints constraints;
        require(
            VrexStreamGraphDecoder3D().decodeConstraintGraph(stream.get(), size, geometries, constraints));
        benchmark::DoNotOptimize(constraints.data());
    }
    setBytes(state, size);
}

/// The same with identifiers far from each other, which have no places in a row.
void decodeScattered(benchmark::State& state) {
    StreamSystem system;
    for (const auto& geometry : system.geometries) {
        geometry->setID(geometry->getID() * 0x9E3779B97F4A7C15U);
    }
    unsigned int size = 0;
    const Buffer stream = encode(system, size);
    for ([[maybe_unused]] auto step : state) {
        VrexStreamGraphDecoder::Geometries geometries;
        VrexStreamGraphDecoder::Constraints constraints;
        require(
            VrexStreamGraphDecoder3D().decodeConstraintGraph(stream.get(), size, geometries, constraints));
        benchmark::DoNotOptimize(constraints.data());
    }
    setBytes(state, size);
}

#ifdef VREX_HAS_FLATBUFFERS
void decodePeer(benchmark::State& state) {
    flatbuffers::FlatBufferBuilder builder;
    StreamPeerEncoder(builder).encode(streamSystem());
    for ([[maybe_unused]] auto step : state) {
        StreamPeerDecoder decoder;
        require(decoder.decode(builder.GetBufferPointer(), builder.GetSize()));
        benchmark::DoNotOptimize(decoder.constraints.data());
    }
    setBytes(state, static_cast<unsigned int>(builder.GetSize()));
}

/// Room for all from the start, which spares the peer to grow.
void encodePeer(benchmark::State& state) {
    const StreamSystem& system = streamSystem();
    flatbuffers::FlatBufferBuilder first;
    StreamPeerEncoder(first).encode(system);
    const std::size_t size = first.GetSize();
    for ([[maybe_unused]] auto step : state) {
        flatbuffers::FlatBufferBuilder builder(size + 1024);
        StreamPeerEncoder(builder).encode(system);
        benchmark::DoNotOptimize(builder.GetBufferPointer());
    }
    setBytes(state, static_cast<unsigned int>(size));
}
#endif

} // namespace

int main(int argc, char** argv) {
    benchmark::RegisterBenchmark("write/peer_copy", writePeer);
    benchmark::RegisterBenchmark("write/measured_and_written", writeStream);
    benchmark::RegisterBenchmark("read/peer_copy", readPeer);
    benchmark::RegisterBenchmark("read/into_lists", readStream);
    benchmark::RegisterBenchmark("read/into_new_lists", readIntoNewLists);
#ifdef VREX_HAS_FLATBUFFERS
    benchmark::RegisterBenchmark("encode/peer_flatbuffers", encodePeer);
#endif
    benchmark::RegisterBenchmark("encode/objects", encodeObjects);
    benchmark::RegisterBenchmark("encode/copy_of_the_bytes", copyStream);
#ifdef VREX_HAS_FLATBUFFERS
    benchmark::RegisterBenchmark("decode/peer_flatbuffers", decodePeer);
#endif
    benchmark::RegisterBenchmark("decode/objects", decodeObjects);
    benchmark::RegisterBenchmark("decode/scattered_ids", decodeScattered);
    benchmark::RegisterBenchmark("decode/copy_of_the_bytes", copyStream);
    return RatioReport::run(argc, argv);
}
