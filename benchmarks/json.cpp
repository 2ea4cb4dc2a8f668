// JSON text: which parser walks a document fastest, and what reading and writing whole values costs.
//
// The document is an array of objects as a system of constraints writes them: 64-bit identifiers, short and
// long texts, coordinates with all their digits. "Walk" visits every value and builds nothing; "Read" builds
// values.

#include <charconv>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include <benchmark/benchmark.h>

#ifdef VREX_HAS_RAPIDJSON
#include <rapidjson/document.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>
#endif
#ifdef VREX_HAS_SIMDJSON
#include <simdjson.h>
#endif

#include "tolvbase/LumoJson.h"

namespace {

constexpr int OBJECTS = 80000;
constexpr std::uint64_t FIRST_ID = 9007199254740993;

std::string makeDocument() {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> length(-1000, 1000);
    LumoJson objects = LumoJson::array();
    for (int number = 0; number < OBJECTS; ++number) {
        LumoJson object;
        object["type"] = "Line3D";
        object["id"] = FIRST_ID + static_cast<unsigned int>(number);
        object["label"] = "line of the frame \xC3\xA4 " + std::to_string(number);
        object["loc"] = LumoJson::array({length(random), length(random), length(random)});
        object["dir"] =
            LumoJson::array({length(random) / 1000, length(random) / 1000, length(random) / 1000});
        object["status"] = "Welldefined";
        object["fixed"] = number % 2 == 0;
        objects.push_back(std::move(object));
    }
    LumoJson root;
    root["objects"] = std::move(objects);
    root["LinearTolerance"] = 1e-8;
    return root.dump();
}

const std::string& document() {
    static const std::string text = makeDocument();
    return text;
}

void finish(benchmark::State& state) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(document().size()));
}

/// Sums what a walk meets, so that no part of it can be left out.
struct Totals {
    double numbers = 0;
    std::size_t bytes = 0;
};

void BM_Read_LumoJson(benchmark::State& state) {
    for (auto _ : state) {
        LumoJson json = LumoJson::parse(document());
        benchmark::DoNotOptimize(json);
    }
    finish(state);
}
BENCHMARK(BM_Read_LumoJson)->Unit(benchmark::kMillisecond);

void BM_Write_LumoJson(benchmark::State& state) {
    const LumoJson json = LumoJson::parse(document());
    for (auto _ : state) {
        benchmark::DoNotOptimize(json.dump());
    }
    finish(state);
}
BENCHMARK(BM_Write_LumoJson)->Unit(benchmark::kMillisecond);

void BM_Copy_LumoJson(benchmark::State& state) {
    const LumoJson json = LumoJson::parse(document());
    for (auto _ : state) {
        LumoJson copy = json;
        benchmark::DoNotOptimize(copy);
    }
    finish(state);
}
BENCHMARK(BM_Copy_LumoJson)->Unit(benchmark::kMillisecond);

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

void BM_Walk_RapidJson(benchmark::State& state) {
    for (auto _ : state) {
        rapidjson::MemoryStream stream(document().data(), document().size());
        rapidjson::Reader reader;
        Counter counter;
        if (reader.Parse<EXACT>(stream, counter).IsError()) {
            state.SkipWithError("refused");
        }
        benchmark::DoNotOptimize(counter.totals);
    }
    finish(state);
}
BENCHMARK(BM_Walk_RapidJson)->Unit(benchmark::kMillisecond);

void BM_Read_RapidJson(benchmark::State& state) {
    for (auto _ : state) {
        rapidjson::Document json;
        json.Parse<EXACT>(document().data(), document().size());
        benchmark::DoNotOptimize(json);
    }
    finish(state);
}
BENCHMARK(BM_Read_RapidJson)->Unit(benchmark::kMillisecond);
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

void walk(simdjson::dom::element element, Totals& totals) {
    switch (element.type()) {
    case simdjson::dom::element_type::ARRAY:
        for (const auto below : simdjson::dom::array(element)) {
            walk(below, totals);
        }
        break;
    case simdjson::dom::element_type::OBJECT:
        for (const auto field : simdjson::dom::object(element)) {
            totals.bytes += field.key.size();
            walk(field.value, totals);
        }
        break;
    case simdjson::dom::element_type::STRING:
        totals.bytes += std::string_view(element).size();
        break;
    case simdjson::dom::element_type::DOUBLE:
    case simdjson::dom::element_type::INT64:
    case simdjson::dom::element_type::UINT64:
        totals.numbers += double(element);
        break;
    default:
        benchmark::DoNotOptimize(element);
    }
}

/// As the library uses it: a padded copy, structure and strings from simdjson, numbers from their tokens.
void BM_Walk_SimdjsonOnDemand(benchmark::State& state) {
    for (auto _ : state) {
        const simdjson::padded_string padded(document());
        simdjson::ondemand::parser parser;
        simdjson::ondemand::document json = parser.iterate(padded);
        Totals totals;
        walk(json.get_value(), totals);
        benchmark::DoNotOptimize(totals);
    }
    finish(state);
}
BENCHMARK(BM_Walk_SimdjsonOnDemand)->Unit(benchmark::kMillisecond);

void BM_Walk_SimdjsonDom(benchmark::State& state) {
    for (auto _ : state) {
        simdjson::dom::parser parser;
        Totals totals;
        walk(parser.parse(document()), totals);
        benchmark::DoNotOptimize(totals);
    }
    finish(state);
}
BENCHMARK(BM_Walk_SimdjsonDom)->Unit(benchmark::kMillisecond);
#endif

} // namespace
