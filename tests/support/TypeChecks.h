#pragma once

#include <array>
#include <memory>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "support/AnyGeometry.h"

/// Rules about entity types, stated in words and tried over all types and two numbers beyond them.
namespace nsTypeChecks {

constexpr int LOWEST = -1;
constexpr int HIGHEST = 20;

/// The numbers of the types with these short names, a blank between.
inline std::set<int> typesOf(const std::string& shortNames) {
    constexpr std::array ordered{"pt",           "ln",      "pl",    "rs",  "ns",    "cy",      "s",
                                 "ci",           "sp",      "co",    "el",  "to",    "cnt",     "spin",
                                 "eval_surf_3d", "evac_3d", "sweep", "pat", "a_pat", "eq_d_ele"};
    std::set<int> numbers;
    std::istringstream words(shortNames);
    for (std::string word; words >> word;) {
        int number = 0;
        while (word != ordered.at(static_cast<std::size_t>(number))) {
            ++number;
        }
        numbers.insert(number);
    }
    return numbers;
}

/// Calls `check(type1, type2, label)` for all ordered pairs.
template <class Check>
void forAllPairs(const Check& check) {
    for (int first = LOWEST; first <= HIGHEST; ++first) {
        for (int second = LOWEST; second <= HIGHEST; ++second) {
            SCOPED_TRACE(std::to_string(first) + " with " + std::to_string(second));
            check(first, second);
        }
    }
}

/// Expects `canCreate` of two types to be true for exactly the ordered pairs that `admitted` names.
template <class CanCreate, class Admitted>
void expectAdmits(const CanCreate& canCreate, const Admitted& admitted) {
    forAllPairs([&](int first, int second) {
        EXPECT_EQ(canCreate(VrexGeometry3DType{first}, VrexGeometry3DType{second}), admitted(first, second));
    });
}

/// The same where both types have to be among those of these short names.
template <class CanCreate>
void expectAdmitsBothOf(const CanCreate& canCreate, const std::string& shortNames) {
    const auto set = typesOf(shortNames);
    expectAdmits(canCreate,
                 [&set](int first, int second) { return set.contains(first) && set.contains(second); });
}

/// An entity with a freedom that tells its type: 100 more than the number.
class FreedomByType : public AnyGeometry {
public:
    using AnyGeometry::AnyGeometry;
    static std::shared_ptr<FreedomByType> create(int type) {
        return std::make_shared<FreedomByType>(VrexGeometry3DType{type});
    }
    int dof() const override { return 100 + static_cast<int>(type()); }
};

} // namespace nsTypeChecks
