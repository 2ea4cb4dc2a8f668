// JSON: which parser walks a document fastest, what reading and writing whole values costs, and what it takes
// to save and to load a system.
//
// The document is that of 100,000 objects: half points, the rest lines, circles, sets, distances and
// incidences, coordinates with all their digits. "walk" visits every value and builds nothing; "read" and
// "write" go between text and values; "save" goes from objects to text, while its peer has its tree of values
// ready; "load" goes from text to objects, while its peers come to their values only.

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#ifdef VREX_HAS_NLOHMANN
#include <nlohmann/json.hpp>
#endif
#ifdef VREX_HAS_RAPIDJSON
#include <rapidjson/document.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#endif
#ifdef VREX_HAS_SIMDJSON
#include <simdjson.h>
#endif

#include "PeakMemory.h"
#include "RatioReport.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "data/serialization/3d/VrexSystem3DDeserializer.h"
#include "data/serialization/3d/VrexSystem3DSerializer.h"
#include "tolvbase/LumoJson.h"

namespace {

constexpr std::size_t OBJECTS = 100'000;
/// A part of ten objects: five points, a line, a circle, a set of these two and three of the points, a
/// distance and an incidence.
constexpr std::size_t PART = 10;
constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;

class Lists {
public:
    VrexImmutableSystem3D makeSystem(std::size_t count) {
        for (std::size_t i = 0; i < count / PART; ++i) {
            addPart();
        }
        return {std::move(m_geometries), {}, std::move(m_constraints), {}, 1e-6, 1e-8, {}, {}};
    }

private:
    VrexVector3DT<double> vector() { return {m_length(m_random), m_length(m_random), m_length(m_random)}; }
    template <class Object>
    std::shared_ptr<Object> named(std::shared_ptr<Object> object) {
        object->setID(++m_lastId);
        if (m_lastId % 5 == 0) {
            object->label() = "part of the frame " + std::to_string(m_lastId);
        }
        return object;
    }
    template <class Geometry>
    std::shared_ptr<Geometry> add(std::shared_ptr<Geometry> geometry) {
        geometry->status() = VrexGeometryStatus::Welldefined;
        m_geometries.push_back(named(geometry));
        return geometry;
    }
    void addPart() {
        std::vector<std::shared_ptr<VrexPoint3D>> points;
        for (std::size_t i = 0; i < PART / 2; ++i) {
            const auto place = vector();
            points.push_back(add(VrexPoint3D::create(place.x(), place.y(), place.z())));
        }
        const auto line = add(VrexLine3D::create(vector(), vector()));
        const auto circle = add(VrexCircle3D::create(vector(), vector(), m_length(m_random)));
        add(VrexRigidSet3D::create({line, circle, points[0], points[1], points[2]}));
        const auto distance = VrexDistance3D::create(points[3], points[4], m_length(m_random), WHOLE, WHOLE);
        distance->setHelpPoint1(vector());
        m_constraints.push_back(named(distance));
        m_constraints.push_back(
            named(VrexIncidence3D::create(points[3], line, VrexIncidence3DType::Default, WHOLE, WHOLE)));
    }

    std::mt19937_64 m_random{1};
    std::uniform_real_distribution<double> m_length{-1000, 1000};
    std::vector<std::shared_ptr<VrexGeometry3D>> m_geometries;
    std::vector<std::shared_ptr<VrexConstraint3D>> m_constraints;
    std::uint64_t m_lastId = 0;
};

const VrexImmutableSystem3D& system() {
    static const VrexImmutableSystem3D made = Lists().makeSystem(OBJECTS);
    return made;
}

std::string textOf(const VrexImmutableSystem3D& system) {
    VrexSystem3DSerializer serializer({});
    serializer.serialize(system);
    return std::string(serializer.jsonStream());
}

const std::string& document() {
    static const std::string text = textOf(system());
    return text;
}

/// Sums what a walk meets, so that no part of it can be left out.
struct Totals {
    double numbers = 0;
    std::size_t bytes = 0;
};

LumoJson readLumo() { return LumoJson::parse(document()); }
const LumoJson& readyLumo() {
    static const LumoJson json = readLumo();
    return json;
}
std::size_t writeLumo() { return readyLumo().dump().size(); }
LumoJson copyLumo() { return readyLumo(); }
std::size_t saveSystem() {
    VrexSystem3DSerializer serializer({});
    serializer.serialize(system());
    return serializer.jsonStream().size();
}

VrexImmutableSystem3D load(const std::string& text) {
    VrexImmutableSystem3D loaded;
    deserialize(LumoJson::parse(text), loaded, {});
    return loaded;
}
VrexImmutableSystem3D loadSystem() { return load(document()); }

#ifdef VREX_HAS_NLOHMANN
nlohmann::json readNlohmann() { return nlohmann::json::parse(document()); }
std::size_t writeNlohmann() {
    static const nlohmann::json json = readNlohmann();
    return json.dump().size();
}
#endif

#ifdef VREX_HAS_RAPIDJSON
constexpr unsigned int EXACT = rapidjson::kParseIterativeFlag | rapidjson::kParseFullPrecisionFlag |
                               rapidjson::kParseValidateEncodingFlag;

struct Counter : rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Counter> {
    Totals totals;
    template <class Number>
    bool add(Number value) {
        totals.numbers += static_cast<double>(value);
        return true;
    }
    bool Int(int value) { return add(value); }
    bool Uint(unsigned int value) { return add(value); }
    bool Int64(std::int64_t value) { return add(value); }
    bool Uint64(std::uint64_t value) { return add(value); }
    bool Double(double value) { return add(value); }
    bool String(const char*, rapidjson::SizeType length, bool) {
        totals.bytes += length;
        return true;
    }
    bool Key(const char*, rapidjson::SizeType length, bool) {
        totals.bytes += length;
        return true;
    }
};

Totals walkRapidJson() {
    rapidjson::MemoryStream stream(document().data(), document().size());
    rapidjson::Reader reader;
    Counter counter;
    if (reader.Parse<EXACT>(stream, counter).IsError()) {
        std::exit(1);
    }
    return counter.totals;
}

rapidjson::Document readRapidJson() {
    rapidjson::Document json;
    json.Parse<EXACT>(document().data(), document().size());
    return json;
}

std::size_t writeRapidJson() {
    static const rapidjson::Document json = readRapidJson();
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    json.Accept(writer);
    return buffer.GetSize();
}
#endif

#ifdef VREX_HAS_SIMDJSON
void addNumber(std::string_view token, Totals& totals) {
    token = token.substr(0, token.find_last_not_of(" \t\n\r") + 1);
    std::uint64_t integer = 0;
    const char* const end = token.data() + token.size();
    if (std::from_chars(token.data(), end, integer).ptr == end) {
        totals.numbers += static_cast<double>(integer);
        return;
    }
    double value = 0;
    std::from_chars(token.data(), end, value);
    totals.numbers += value;
}

void walk(simdjson::ondemand::value value, Totals& totals) {
    switch (value.type().value()) {
    case simdjson::ondemand::json_type::array:
        for (auto element : value.get_array()) {
            walk(element.value(), totals);
        }
        break;
    case simdjson::ondemand::json_type::object:
        for (auto field : value.get_object()) {
            totals.bytes += field.unescaped_key().value().size();
            walk(field.value().value(), totals);
        }
        break;
    case simdjson::ondemand::json_type::string:
        totals.bytes += value.get_string().value().size();
        break;
    case simdjson::ondemand::json_type::number:
        addNumber(value.raw_json_token(), totals);
        break;
    default:
        benchmark::DoNotOptimize(value.raw_json_token());
    }
}

/// As the library uses it: a padded copy, structure and strings from simdjson, numbers from their tokens.
Totals walkSimdjson() {
    const simdjson::padded_string padded(document());
    simdjson::ondemand::parser parser;
    simdjson::ondemand::document json = parser.iterate(padded);
    Totals totals;
    walk(json.get_value(), totals);
    return totals;
}
#endif

/// What `work` makes is released in the measured time, too.
template <class Work>
void add(const char* name, Work work) {
    benchmark::RegisterBenchmark(name, [work](benchmark::State& state) {
        for (auto _ : state) {
            auto result = work();
            benchmark::DoNotOptimize(result);
        }
        state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                                static_cast<std::int64_t>(document().size()));
    });
}

/// Per object, to see how time grows; `prepare` makes of a system what `work` is measured with.
template <class Prepare, class Work>
void addGrowing(const std::string& workload, std::size_t count, Prepare prepare, Work work) {
    const std::string name = workload + "_each_object_of/" + std::to_string(count);
    benchmark::RegisterBenchmark(name.c_str(),
                                 [count, prepare, work](benchmark::State& state) {
                                     const auto prepared = prepare(Lists().makeSystem(count));
                                     for (auto _ : state) {
                                         const double start = RatioReport::threadSeconds();
                                         work(prepared);
                                         state.SetIterationTime((RatioReport::threadSeconds() - start) /
                                                                static_cast<double>(count));
                                     }
                                 })
        ->UseManualTime()
        ->Iterations(static_cast<benchmark::IterationCount>(count < 1'000'000 ? 1'000'000 / count : 1));
}

void addSaving(std::size_t count) {
    addGrowing(
        "save", count, [](VrexImmutableSystem3D made) { return made; },
        [](const VrexImmutableSystem3D& saved) {
            VrexSystem3DSerializer serializer({});
            serializer.serialize(saved);
            benchmark::DoNotOptimize(serializer.jsonStream());
        });
}

void addLoading(std::size_t count) {
    addGrowing("load", count, textOf, [](const std::string& text) {
        const auto loaded = load(text);
        benchmark::DoNotOptimize(loaded);
    });
}

/// How much memory loading takes.
int weighLoading() {
    const std::string text = textOf(Lists().makeSystem(OBJECTS));
    const PeakMemory memory;
    const auto loaded = load(text);
    benchmark::DoNotOptimize(loaded);
    std::printf("Loading %zu bytes takes %.1f times as much memory.\n", text.size(),
                memory.bytes() / static_cast<double>(text.size()));
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--weigh-loading") {
        return weighLoading();
    }
    std::printf("A document of %zu objects and %zu bytes.\n", OBJECTS, document().size());
#ifdef VREX_HAS_RAPIDJSON
    add("walk/peer_rapidjson", walkRapidJson);
    add("read/peer_rapidjson", readRapidJson);
    add("write/peer_rapidjson", writeRapidJson);
#endif
#ifdef VREX_HAS_SIMDJSON
    add("walk/simdjson", walkSimdjson);
#endif
    add("read/LumoJson", readLumo);
    add("write/LumoJson", writeLumo);
    add("copy/LumoJson", copyLumo);
    add("save/serializer", saveSystem);
#ifdef VREX_HAS_NLOHMANN
    add("read/nlohmann", readNlohmann);
    add("write/nlohmann", writeNlohmann);
    add("save/peer_nlohmann_dump", writeNlohmann);
#endif
    add("load/deserializer", loadSystem);
    add("load/LumoJson_parse", readLumo);
#ifdef VREX_HAS_NLOHMANN
    add("load/peer_nlohmann_parse", readNlohmann);
#endif
    for (const std::size_t count : {1'000U, 10'000U, 100'000U, 1'000'000U}) {
        addSaving(count);
        addLoading(count);
    }
    return RatioReport::run(argc, argv);
}
