#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

#include "support/JsonSamples.h"
#include "tolvbase/LumoJson.h"

/// The first place at which two documents differ; members in whatever order. Numbers are compared as their
/// texts, except those of directions and rotations, which may differ by a tolerance.
class JsonDifference {
public:
    explicit JsonDifference(double directionTolerance = 0.0) : m_tolerance(directionTolerance) {}

    /// "" where there is none.
    std::string find(const LumoJson& expected, const LumoJson& actual) const {
        return find(expected, actual, false);
    }

private:
    static bool isDirection(std::string_view key) {
        return key == "dir" || key == "norm" || key == "axis" || key == "rot";
    }
    bool areNear(const LumoJson& expected, const LumoJson& actual) const {
        return expected.is_number() && actual.is_number() &&
               std::fabs(nsJsonSamples::valueOf<double>(expected) - nsJsonSamples::valueOf<double>(actual)) <=
                   m_tolerance;
    }

    std::string find(const LumoJson& expected, const LumoJson& actual, bool isDirected) const {
        if (expected.is_object() && actual.is_object()) {
            return findMember(expected, actual);
        }
        if (expected.is_array() && actual.is_array() && expected.size() == actual.size()) {
            return findElement(expected, actual, isDirected);
        }
        if (expected.dump() == actual.dump() || (isDirected && areNear(expected, actual))) {
            return "";
        }
        return ": " + expected.dump() + " became " + actual.dump();
    }

    std::string findElement(const LumoJson& expected, const LumoJson& actual, bool isDirected) const {
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const std::string difference = find(expected[i], actual[i], isDirected);
            if (!difference.empty()) {
                return at(std::to_string(i), difference);
            }
        }
        return "";
    }

    std::string findMember(const LumoJson& expected, const LumoJson& actual) const {
        for (auto member = actual.begin(); member != actual.end(); ++member) {
            if (!expected.contains(member.key())) {
                return at(member.key(), ": is new");
            }
        }
        for (auto member = expected.begin(); member != expected.end(); ++member) {
            const auto found = actual.find(member.key());
            const std::string difference =
                found == actual.end() ? ": is gone" : find(*member, *found, isDirection(member.key()));
            if (!difference.empty()) {
                return at(member.key(), difference);
            }
        }
        return "";
    }

    static std::string at(std::string_view place, const std::string& difference) {
        return std::string("/").append(place).append(difference);
    }

    double m_tolerance;
};
