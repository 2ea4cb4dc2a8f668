#include "data/VrexVariableFusion.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "data/VrexVariableKernels.h"

namespace {

using nsVariableFusion::Term;
using Store = VrexVariable::Derivatives;
using Entry = Store::Entry;

/// What the terms may bring together before the sum goes through stores on the heap; positions fit a byte.
constexpr std::uint64_t MOST_ENTRIES = 255;

/// Sums entries by key into a buffer that holds all that the terms bring.
///
/// The slot of a key's low bits says where the key stands; it is valid once the bit is seen, and right unless
/// two keys share their low bits, which is then found by a scan.
class Accumulator {
public:
    explicit Accumulator(Entry* sums) : m_sums(sums) {}

    void add(const Store& store, double factor) {
        for (const Entry& entry : store) {
            const unsigned low = entry.key & 63;
            const double part = factor * entry.value;
            if ((m_seen >> low & 1) == 0) {
                m_seen |= std::uint64_t{1} << low;
                append(entry.key, part, low);
            } else if (Entry& guess = m_sums[m_slots[low]]; guess.key == entry.key) {
                guess.value += part;
            } else {
                addByScan(entry.key, part, low);
            }
        }
    }
    std::uint64_t count() const { return m_count; }

private:
    void append(std::uint64_t key, double part, unsigned low) {
        m_sums[m_count] = {key, part};
        m_slots[low] = static_cast<std::uint8_t>(m_count);
        ++m_count;
    }
    void addByScan(std::uint64_t key, double part, unsigned low) {
        Entry* const end = m_sums + m_count;
        Entry* const found = std::find_if(m_sums, end, [key](const Entry& sum) { return sum.key == key; });
        if (found != end) {
            found->value += part;
        } else {
            append(key, part, low);
        }
    }

    Entry* m_sums;
    std::uint64_t m_count = 0;
    std::uint64_t m_seen = 0;
    std::array<std::uint8_t, 64> m_slots; // raw where the bit is not seen
};

bool haveSameKeys(const Store& a, const Store& b) {
    return a.size() == b.size() && nsVariableKernels::commonPrefix(a, b) == a.size();
}

/// What the terms bring: their entries, and whether all that hold keys hold the same in the same order.
struct Survey {
    const Store* first = nullptr; ///< The first store that holds keys.
    std::uint64_t entries = 0;
    bool alike = true;
};

Survey surveyOf(std::span<const Term> terms) {
    Survey survey;
    for (const Term& term : terms) {
        const Store& store = term.operand.derivatives();
        survey.entries += store.size();
        if (store.empty()) {
            continue;
        }
        if (survey.first == nullptr) {
            survey.first = &store;
        } else if (survey.alike) {
            survey.alike = haveSameKeys(*survey.first, store);
        }
    }
    return survey;
}

void sumAlike(Store& result, const Store& keys, std::span<const Term> terms) {
    const std::uint64_t count = keys.size();
    result.reserve(count);
    result.resizeForOverwrite(count);
    Entry* const sums = result.begin();
    bool isFirst = true;
    for (const Term& term : terms) {
        const Store& store = term.operand.derivatives();
        const Entry* const entries = store.begin();
        const double factor = term.factor;
        if (store.empty()) {
            continue;
        }
        if (isFirst) {
            for (std::uint64_t i = 0; i < count; ++i) {
                sums[i].key = entries[i].key;
                sums[i].value = factor * entries[i].value;
            }
            isFirst = false;
        } else {
            for (std::uint64_t i = 0; i < count; ++i) {
                sums[i].value += factor * entries[i].value;
            }
        }
    }
}

void sumInside(Store& result, std::span<const Term> terms) {
    Accumulator accumulator(result.begin());
    for (const Term& term : terms) {
        accumulator.add(term.operand.derivatives(), term.factor);
    }
    result.resizeForOverwrite(accumulator.count());
}

void sumThroughBuffer(Store& result, std::span<const Term> terms) {
    std::array<Entry, MOST_ENTRIES> sums;
    Accumulator accumulator(sums.data());
    for (const Term& term : terms) {
        accumulator.add(term.operand.derivatives(), term.factor);
    }
    result.reserve(accumulator.count());
    result.resizeForOverwrite(accumulator.count());
    std::copy_n(sums.data(), accumulator.count(), result.begin());
}

void sumThroughStores(Store& result, std::span<const Term> terms) {
    for (const Term& term : terms) {
        const double factor = term.factor;
        nsVariableKernels::combineInto(
            result, term.operand.derivatives(), [factor](double d, double db) { return d + factor * db; },
            [factor](double db) { return factor * db; });
    }
}

} // namespace

VrexVariable nsVariableFusion::linearCombination(double value, std::span<const Term> terms) {
    VrexVariable result(value);
    const Survey survey = surveyOf(terms);
    if (survey.first == nullptr) {
        return result;
    }
    if (survey.alike) {
        sumAlike(result.derivatives(), *survey.first, terms);
    } else if (survey.entries <= Store::INLINE_CAPACITY) {
        sumInside(result.derivatives(), terms);
    } else if (survey.entries <= MOST_ENTRIES) {
        sumThroughBuffer(result.derivatives(), terms);
    } else {
        sumThroughStores(result.derivatives(), terms);
    }
    return result;
}
