#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "data/VrexVariable.h"

/// Hidden: where the derivatives of linear combinations of parameters stand in their stores.
///
/// A store begins with the keys of the parameters that stand in the combination, in the order in which these
/// were added, and goes on, if asked, with those of all others: the same order as from adding up the
/// parameters and then a zero that depends on all of them. What was worked out about a list of parameters is
/// kept for a next list with the same keys.
class VrexGradientLayout {
public:
    using Store = VrexVariable::Derivatives;

    /// Takes a list of parameters, which the calls below name by their index.
    void learn(const std::vector<VrexVariable>& parameters);

    /// Begins a new layout, of no keys.
    void clear();
    void addParameter(std::size_t parameter);
    /// A key that need not be any parameter's; at most one a layout.
    void addKey(std::uint64_t key);
    /// Ends the layout with the keys of all parameters that were not added.
    void addRest();

    /// Makes an empty store one of this layout, all zero.
    void fill(Store& store) const;
    /// Adds `factor` times the derivatives of a parameter that was added; `entries` are its store.
    void accumulate(Store& store, std::size_t parameter, const Store& entries, double factor) const;
    /// Adds to the derivative by the key that was added.
    void accumulateKey(Store& store, double derivative) const {
        store.begin()[m_ranks[m_keyPosition]].value += derivative;
    }

private:
    static constexpr std::size_t NOWHERE = static_cast<std::size_t>(-1);

    static VrexGradientLayout make(const std::vector<VrexVariable>& parameters);
    bool isKnown(const std::vector<VrexVariable>& parameters) const;
    std::size_t firstEntry(std::size_t parameter) const {
        return parameter == 0 ? 0 : m_entryEnds[parameter - 1];
    }
    void add(std::size_t position, std::uint64_t key);

    std::vector<Store::Entry> m_zeros;         ///< A zero for each key of all parameters.
    std::vector<std::size_t> m_entryEnds;      ///< Behind the last entry of each parameter, of all entries.
    std::vector<std::uint64_t> m_entryKeys;    ///< Of all entries.
    std::vector<std::size_t> m_entryPositions; ///< Of all entries, in `m_zeros`.

    std::vector<Store::Entry> m_entries; ///< The layout, with zeros.
    std::vector<std::size_t>
        m_added; ///< What was added to it: positions in `m_zeros`, its end a foreign key.
    std::vector<std::size_t> m_ranks; ///< Where each position stands in the layout.
    std::size_t m_keyPosition = 0;
};
