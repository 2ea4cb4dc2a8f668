#include "tools/vrex/VrexDocumentDifference.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <fmt/format.h>

#include "data/serialization/VrexJsonKeys.h"

namespace keys = nsJsonKeys;

namespace {

using Key = std::string_view;
using Take = std::function<void(const VrexDifference&)>;
using Change = VrexDifference::Change;

constexpr std::array ARRAYS = {keys::OBJECTS, keys::VARIABLES, keys::CONSTRAINTS, keys::EQUATIONS};

/// Keys whose numbers are places in an array of the root.
struct Reference {
    Key key, array;
};
constexpr Reference REFERENCES[] = {
    {keys::ARGUMENTS, keys::OBJECTS},       {keys::POINTS, keys::OBJECTS},
    {keys::CONTROL_POINTS, keys::OBJECTS},  {keys::INTERPOLATED_POINTS, keys::OBJECTS},
    {keys::PROFILE_SURFACE, keys::OBJECTS}, {keys::PROFILE_CURVE, keys::OBJECTS},
    {keys::TRAJECTORY_LINE, keys::OBJECTS}, {keys::OBJECT, keys::OBJECTS},
    {keys::OBJECT_ID, keys::OBJECTS},       {keys::REFERENCE_GEOMETRIES, keys::OBJECTS},
    {keys::CONSTRAINTS, keys::CONSTRAINTS}, {keys::CONSTRAINT, keys::CONSTRAINTS},
    {keys::VARIABLE, keys::VARIABLES},      {keys::VARIABLE_INDEX, keys::VARIABLES},
};

const LumoJson* find(const LumoJson& json, Key key) {
    const auto found = json.find(key);
    return found == json.end() ? nullptr : &*found;
}

/// As a part of a JSON pointer.
std::string escaped(Key key) {
    std::string part;
    for (const char letter : key) {
        part.append(letter == '~' ? "~0" : letter == '/' ? "~1" : std::string_view(&letter, 1));
    }
    return part;
}

bool isText(const LumoJson* json, std::string_view text) {
    std::string_view found;
    if (json != nullptr && json->is_string()) {
        getValue(*json, found);
    }
    return found == text;
}

bool bindsVariable(const LumoJson& object) {
    const LumoJson* const type = find(object, keys::TYPE);
    return isText(type, "VariableFixation3D") || isText(type, "MateDimensionInterval3D");
}

std::uint64_t idOf(const LumoJson& object) {
    std::uint64_t id = 0;
    if (const LumoJson* const found = find(object, keys::ID)) {
        getValue(*found, id);
    }
    return id;
}

/// An array of the root, and its places by identifier.
class Objects {
public:
    Objects(const LumoJson& root, Key key) : m_array(find(root, key)) {
        for (std::size_t i = 0; i < size(); ++i) {
            m_places.try_emplace(idOf(at(i)), i);
        }
    }
    std::size_t size() const { return m_array != nullptr ? m_array->size() : 0; }
    const LumoJson& at(std::size_t place) const { return (*m_array)[place]; }
    bool hasOwnIds() const { return m_places.size() == size(); }
    /// The place of that identifier; beyond the end where there is none.
    std::size_t placeOf(std::uint64_t id) const {
        const auto found = m_places.find(id);
        return found != m_places.end() ? found->second : size();
    }

private:
    const LumoJson* m_array;
    std::unordered_map<std::uint64_t, std::size_t> m_places;
};

/// The same array of both documents.
struct Pair {
    Key key;
    Objects first, second;
    bool isById;

    Pair(Key array, const LumoJson& firstRoot, const LumoJson& secondRoot)
        : key(array),
          first(firstRoot, array),
          second(secondRoot, array),
          isById(first.hasOwnIds() && second.hasOwnIds()) {}

    /// Where the object at this place of the first document stands in the second one.
    std::size_t counterpart(std::size_t place) const {
        return isById && place < first.size() ? second.placeOf(idOf(first.at(place))) : place;
    }
};

class Comparison {
public:
    Comparison(const LumoJson& first, const LumoJson& second, double tolerance, const Take& take)
        : m_tolerance(tolerance), m_take(take) {
        for (const Key key : ARRAYS) {
            m_pairs.emplace_back(key, first, second);
        }
    }

    void compareRoots(const LumoJson& first, const LumoJson& second) {
        for (const Pair& pair : m_pairs) {
            compareLists(pair);
        }
        m_object = nullptr;
        const auto isCompared = [](Key key) { return std::ranges::find(ARRAYS, key) != ARRAYS.end(); };
        compareMembers(first, second, "", isCompared);
    }

private:
    void compareLists(const Pair& pair) {
        std::vector<bool> isMet(pair.second.size(), false);
        for (std::size_t i = 0; i < pair.first.size(); ++i) {
            const std::size_t place = pair.counterpart(i);
            const std::string pointer = fmt::format("/{}/{}", pair.key, i);
            m_object = &pair.first.at(i);
            if (place >= pair.second.size()) {
                m_take({Change::ONLY_IN_FIRST, pointer, m_object, {}, {}});
                continue;
            }
            isMet[place] = true;
            compareObjects(pair.first.at(i), pair.second.at(place), pointer);
        }
        for (std::size_t i = 0; i < isMet.size(); ++i) {
            if (!isMet[i]) {
                m_take(
                    {Change::ONLY_IN_SECOND, fmt::format("/{}/{}", pair.key, i), &pair.second.at(i), {}, {}});
            }
        }
    }

    void compareObjects(const LumoJson& first, const LumoJson& second, const std::string& pointer) {
        compareMembers(first, second, pointer, [](Key) { return false; });
    }

    /// Those of the first document come first; which keys are left out, `isLeftOut` tells.
    template <class IsLeftOut>
    void compareMembers(const LumoJson& first, const LumoJson& second, const std::string& pointer,
                        const IsLeftOut& isLeftOut) {
        for (auto member = first.begin(); member != first.end(); ++member) {
            if (!isLeftOut(member.key())) {
                compareMember(first, second, member.key(), pointer);
            }
        }
        for (auto member = second.begin(); member != second.end(); ++member) {
            if (!first.contains(member.key()) && !isLeftOut(member.key())) {
                compareMember(first, second, member.key(), pointer);
            }
        }
    }

    void compareMember(const LumoJson& first, const LumoJson& second, Key key, const std::string& pointer) {
        const LumoJson* const one = find(first, key);
        const LumoJson* const other = find(second, key);
        const std::string place = fmt::format("{}/{}", pointer, escaped(key));
        if (one == nullptr || other == nullptr) {
            differ(place, one != nullptr ? *one : LumoJson(), other != nullptr ? *other : LumoJson());
            return;
        }
        compareValues(*one, *other, key, place);
    }

    void compareValues(const LumoJson& first, const LumoJson& second, Key key, const std::string& pointer) {
        if (first.is_object() && second.is_object()) {
            compareObjects(first, second, pointer);
        } else if (first.is_array() && second.is_array() && first.size() == second.size()) {
            for (std::size_t i = 0; i < first.size(); ++i) {
                compareValues(first[i], second[i], key, fmt::format("{}/{}", pointer, i));
            }
        } else if (!areSame(first, second, key)) {
            differ(pointer, first, second);
        }
    }

    bool areSame(const LumoJson& first, const LumoJson& second, Key key) const {
        if (!first.is_number() || !second.is_number()) {
            return first.dump() == second.dump();
        }
        if (const Pair* const named = findNamed(key)) {
            std::uint64_t one = 0;
            std::uint64_t other = 0;
            getValue(first, one);
            getValue(second, other);
            return named->counterpart(one) == other;
        }
        double one = 0.0;
        double other = 0.0;
        getValue(first, one);
        getValue(second, other);
        return std::fabs(one - other) <= m_tolerance || first.dump() == second.dump();
    }

    /// The array that numbers at this key are places in; null where they are no places.
    const Pair* findNamed(Key key) const {
        const auto* const reference = std::ranges::find(REFERENCES, key, &Reference::key);
        if (reference == std::end(REFERENCES)) {
            return nullptr;
        }
        const bool isVariable = key == keys::ARGUMENTS && m_object != nullptr && bindsVariable(*m_object);
        const Key array = isVariable ? keys::VARIABLES : reference->array;
        return &*std::ranges::find(m_pairs, array, &Pair::key);
    }

    void differ(const std::string& pointer, const LumoJson& first, const LumoJson& second) const {
        m_take({Change::CHANGED, pointer, m_object, first, second});
    }

    double m_tolerance;
    const Take& m_take;
    std::vector<Pair> m_pairs;
    const LumoJson* m_object = nullptr; ///< Of the first document, the one that is compared.
};

} // namespace

void nsVrexDocumentDifference::find(const LumoJson& first, const LumoJson& second, double tolerance,
                                    const Take& take) {
    Comparison(first, second, tolerance, take).compareRoots(first, second);
}
