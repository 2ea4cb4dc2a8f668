#include "tools/vrex/VrexLabels.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>
#include <unordered_set>

namespace {

/// The number that takes up all of the text, whatever the locale; NaN where it is none.
double numberIn(std::string_view text) {
    double number = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole && std::isfinite(number) ? number : std::nan("");
}

/// Those between commas.
std::vector<double> numbersIn(std::string_view text) {
    std::vector<double> numbers;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        numbers.push_back(numberIn(text.substr(begin, end - begin)));
        begin = end + 1;
    }
    return numbers;
}

nsVrexLabels::Assignment parseOne(const std::string& option, const std::string& text, std::size_t count) {
    // Labels may hold equal signs, numbers do not.
    const std::size_t middle = std::min(text.rfind('='), text.size());
    const bool isNamed = middle > 0 && middle < text.size();
    nsVrexLabels::Assignment result{text.substr(0, middle), {}};
    if (isNamed) {
        result.values = numbersIn(std::string_view(text).substr(middle + 1));
    }
    const auto isNone = [](double number) { return std::isnan(number); };
    if (result.values.size() != count || std::ranges::any_of(result.values, isNone)) {
        throw VrexToolFailure(VrexExitCode::USAGE, fmt::format("{}: \"{}\" is not {}.", option, text,
                                                               count == 1 ? "label=number" : "label=x,y,z"));
    }
    return result;
}

} // namespace

std::vector<nsVrexLabels::Assignment>
nsVrexLabels::parse(const std::string& option, const std::vector<std::string>& texts, std::size_t count) {
    std::vector<Assignment> parsed;
    std::unordered_set<std::string> known;
    for (const std::string& text : texts) {
        parsed.push_back(parseOne(option, text, count));
        const std::string& label = parsed.back().label;
        if (!known.insert(label).second) {
            throw VrexToolFailure(VrexExitCode::USAGE,
                                  fmt::format("{}: \"{}\" stands here twice.", option, label));
        }
    }
    return parsed;
}
