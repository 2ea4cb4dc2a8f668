// Changes documents that hold every kind and every key, as arbitrary bytes tell: members are dropped and
// given other values, elements are repeated, dropped and put elsewhere. What is read of the result is
// evaluated, walked, copied, written and read again.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "support/SystemUse.h"
#include "tolvbase/LumoJson.h"

namespace {

LumoJson readGolden(const char* name) {
    std::ifstream file(std::string(VREX_GOLDEN_FOLDER "/json/").append(name), std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    return LumoJson::parse(text);
}

const std::vector<LumoJson>& documents() {
    static const std::vector<LumoJson> all{readGolden("geometries.json"), readGolden("constraints.json"),
                                           readGolden("equations.json"), readGolden("drags.json")};
    return all;
}

/// What a value may become; small integers besides, as places and counts.
const std::vector<LumoJson>& values() {
    static const std::vector<LumoJson> all = [] {
        const LumoJson json = LumoJson::parse(R"([null, true, false, "", "t", "q + 1", "((", "Geometry",
            "Variable", "Constraint", "Point3D", "Distance3D", "Unknown", "Regular", "Linear3D", {}, [],
            [0], [0, 1], [1, 0, 2], [0.5, 1.5, 2.5], [[0, 1], [2, 3]], [1e308, -1e308, 5e-324],
            18446744073709551615, 4294967295, -1, 0.5, 1e300, 2147483647, -2147483648, -0.0,
            [{"name": "q", "index": 0, "type": "Geometry", "object": 0}],
            [{"name": "q", "index": 3, "type": "Constraint", "constraint": 1}]])");
        return std::vector<LumoJson>(json.begin(), json.end());
    }();
    return all;
}

/// The bytes, as the changes that they ask for.
class Changes {
public:
    Changes(const std::uint8_t* data, std::size_t size) : m_next(data), m_end(data + size) {}

    LumoJson make() {
        LumoJson document = documents()[next() % documents().size()];
        while (m_next != m_end) {
            change(document);
        }
        return document;
    }

private:
    std::size_t next() { return m_next != m_end ? *m_next++ : 0; }

    void change(LumoJson& document) {
        LumoJson* const array = memberAt(document, next());
        if (array == nullptr || !array->is_array() || array->empty()) {
            return;
        }
        const std::size_t what = next();
        LumoJson& element = (*array)[next() % array->size()];
        if (what % 8 == 0) {
            array->push_back(LumoJson(element));
        } else if (what % 8 == 1) {
            (*array)[next() % array->size()].swap(element);
        } else if (what % 8 == 2) {
            dropElement(*array, element);
        } else if (what % 8 == 3) {
            dropMember(element, next());
        } else if (LumoJson* const value = memberAt(element, next())) {
            *value = drawValue();
        }
    }

    LumoJson drawValue() {
        const std::size_t which = next();
        return which < values().size() ? values()[which] : LumoJson(which - values().size());
    }

    static LumoJson* memberAt(LumoJson& object, std::size_t which) {
        if (!object.is_object() || object.empty()) {
            return nullptr;
        }
        return &*(object.begin() + static_cast<int>(which % object.size()));
    }

    static void dropMember(LumoJson& object, std::size_t which) {
        const LumoJson* const dropped = memberAt(object, which);
        if (dropped == nullptr) {
            return;
        }
        LumoJson rest = LumoJson::parse("{}");
        for (auto member = object.begin(); member != object.end(); ++member) {
            if (&*member != dropped) {
                rest[member.key()] = LumoJson(*member);
            }
        }
        object = std::move(rest);
    }

    static void dropElement(LumoJson& array, const LumoJson& dropped) {
        LumoJson rest = LumoJson::array();
        for (LumoJson& element : array) {
            if (&element != &dropped) {
                rest.push_back(std::move(element));
            }
        }
        array = std::move(rest);
    }

    const std::uint8_t* m_next;
    const std::uint8_t* m_end;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const bool isRead = nsSystemUse::readAndUse(Changes(data, size).make());
    if (size < 2 && !isRead) {
        std::abort(); // Nothing was changed.
    }
    return 0;
}
