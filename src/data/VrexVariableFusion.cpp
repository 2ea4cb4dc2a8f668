#include "data/VrexVariableFusion.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include <boost/unordered/unordered_flat_map.hpp>

#include "data/VrexVariableKernels.h"

namespace {

using nsVariableFusion::Term;
using Store = VrexVariable::Derivatives;
using Entry = Store::Entry;

/// What the terms may bring together before the sum goes through a table on the heap; positions fit a byte.
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
    std::uint64_t keyBits() const { return m_seen; }

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

/// A look at the outermost terms, which mostly tells.
bool mayBeAlike(std::span<const Term> terms) {
    if (terms.empty()) {
        return true;
    }
    const Store& first = terms.front().operand.derivatives();
    const Store& last = terms.back().operand.derivatives();
    return first.empty() || last.empty() || first.begin()->key == last.begin()->key;
}

/// The terms that hold keys, when these are few and hold equally many.
class EqualTerms {
public:
    explicit EqualTerms(std::span<const Term> terms) {
        for (const Term& term : terms) {
            const Store& store = term.operand.derivatives();
            if (store.empty()) {
                continue;
            }
            if (m_count == MOST || (m_count > 0 && store.size() != m_size)) {
                m_count = NONE;
                return;
            }
            m_size = store.size();
            m_keyBits = store.keyBits();
            m_entries[m_count] = store.begin();
            m_factors[m_count] = term.factor;
            ++m_count;
        }
    }
    /// Sums the terms into `result` when each key stands at the same place in all; otherwise gives false and
    /// leaves `result` alone.
    bool sum(Store& result) const {
        if (m_count == NONE || !haveKeysInCommon()) {
            return false;
        }
        result.reserve(m_size);
        result.setFilled(m_size, m_keyBits);
        Entry* const sums = result.entries();
        for (std::uint64_t i = 0; i < m_size; ++i) {
            double total = m_factors[0] * m_entries[0][i].value;
            for (std::size_t term = 1; term < m_count; ++term) {
                total += m_factors[term] * m_entries[term][i].value;
            }
            sums[i].key = m_entries[0][i].key;
            sums[i].value = total;
        }
        return true;
    }

private:
    static constexpr std::size_t MOST = 8;
    static constexpr std::size_t NONE = MOST + 1;

    bool haveKeysInCommon() const {
        for (std::uint64_t i = 0; i < m_size; ++i) {
            std::uint64_t difference = 0;
            for (std::size_t term = 1; term < m_count; ++term) {
                difference |= m_entries[term][i].key ^ m_entries[0][i].key;
            }
            if (difference != 0) {
                return false;
            }
        }
        return true;
    }

    std::size_t m_count = 0;
    std::uint64_t m_size = 0;
    std::uint64_t m_keyBits = 0;
    std::array<const Entry*, MOST> m_entries;
    std::array<double, MOST> m_factors;
};

/// True when the words of keys tell that no key stands in two terms.
bool areDisjoint(std::span<const Term> terms) {
    std::uint64_t seen = 0;
    for (const Term& term : terms) {
        const std::uint64_t bits = term.operand.derivatives().keyBits();
        if ((seen & bits) != 0) {
            return false;
        }
        seen |= bits;
    }
    return true;
}

/// The sum of disjoint terms, which bring this many entries together.
void join(Store& result, std::span<const Term> terms, std::uint64_t count) {
    result.reserve(count);
    Entry* target = result.entries();
    std::uint64_t keyBits = 0;
    for (const Term& term : terms) {
        const Store& store = term.operand.derivatives();
        const double factor = term.factor;
        target = nsVariableKernels::writeFew(target, store.begin(), store.end(),
                                             [factor](double d) { return factor * d; });
        keyBits |= store.keyBits();
    }
    result.setFilled(count, keyBits);
}

std::uint64_t countEntries(std::span<const Term> terms) {
    std::uint64_t count = 0;
    for (const Term& term : terms) {
        count += term.operand.derivatives().size();
    }
    return count;
}

void sumInside(Store& result, std::span<const Term> terms) {
    Accumulator accumulator(result.inside());
    for (const Term& term : terms) {
        accumulator.add(term.operand.derivatives(), term.factor);
    }
    result.setFilled(accumulator.count(), accumulator.keyBits());
}

void sumThroughBuffer(Store& result, std::span<const Term> terms) {
    std::array<Entry, MOST_ENTRIES> sums;
    Accumulator accumulator(sums.data());
    for (const Term& term : terms) {
        accumulator.add(term.operand.derivatives(), term.factor);
    }
    result.reserve(accumulator.count());
    result.setFilled(accumulator.count(), accumulator.keyBits());
    std::copy_n(sums.data(), accumulator.count(), result.entries());
}

/// Positions in the result by key.
using Positions = boost::unordered_flat_map<std::uint64_t, std::uint64_t>;

void addThroughTable(Store& result, Positions& positions, const Term& term) {
    for (const Entry& entry : term.operand.derivatives()) {
        const double part = term.factor * entry.value;
        const auto [place, isNew] = positions.try_emplace(entry.key, result.size());
        if (isNew) {
            result.append(entry.key, part);
        } else {
            result.entries()[place->second].value += part;
        }
    }
}

void sumThroughTable(Store& result, std::span<const Term> terms) {
    Positions positions;
    for (const Term& term : terms) {
        addThroughTable(result, positions, term);
    }
}

} // namespace

VrexVariable nsVariableFusion::linearCombination(double value, std::span<const Term> terms) {
    VrexVariable result(value);
    if (mayBeAlike(terms) && EqualTerms(terms).sum(result.derivatives())) {
        return result;
    }
    const std::uint64_t entries = countEntries(terms);
    if (areDisjoint(terms)) {
        join(result.derivatives(), terms, entries);
    } else if (entries <= Store::INLINE_CAPACITY) {
        sumInside(result.derivatives(), terms);
    } else if (entries <= MOST_ENTRIES) {
        sumThroughBuffer(result.derivatives(), terms);
    } else {
        sumThroughTable(result.derivatives(), terms);
    }
    return result;
}
