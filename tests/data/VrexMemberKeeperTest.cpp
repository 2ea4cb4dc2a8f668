#include "data/VrexMemberKeeper.h"

#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

TEST(VrexMemberKeeper, PutsMembersBackAtTheEndOfTheScope) {
    std::string label = "a label too long for the short form of a string";
    std::vector<int> list{1, 2, 3};
    {
        const VrexMemberKeeper kept(label, list);
        label = "other";
        list = {4};
    }
    EXPECT_EQ(label, "a label too long for the short form of a string");
    EXPECT_EQ(list, (std::vector<int>{1, 2, 3}));
}

TEST(VrexMemberKeeper, PutsMembersBackWhenAnExceptionEndsTheScope) {
    std::string label = "kept";
    try {
        const VrexMemberKeeper kept(label);
        label = "half assigned";
        throw std::runtime_error("in the middle");
    } catch (const std::runtime_error&) {
        EXPECT_EQ(label, "kept");
    }
}

} // namespace
