#pragma once

#include <stdexcept>
#include <string>

#include "tolvbase/LumoJson.h"

/// Values of every type, and the ways of the tests to read them.
namespace nsJsonSamples {

template <class T>
T valueOf(const LumoJson& json) {
    T out{};
    LumoJson::getValue(json, out);
    return out;
}

template <class Function>
std::string thrownText(Function function) {
    try {
        function();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "nothing thrown";
}

/// One value of every type, with the type's number.
struct TypeRow {
    LumoJson value;
    int type;
};

inline const TypeRow TYPE_ROWS[] = {
    {LumoJson(), 0},     {LumoJson::parse("{}"), 1}, {LumoJson::array(), 2}, {LumoJson("x"), 3},
    {LumoJson(true), 4}, {LumoJson(1), 7},           {LumoJson(1.5), 7},     {LumoJson(-1), 7},
};

} // namespace nsJsonSamples
