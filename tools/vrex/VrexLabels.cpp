#include "tools/vrex/VrexLabels.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

namespace {

/// The number that takes up all of the text, whatever the locale; NaN where it is none.
double numberIn(std::string_view text) {
    double number = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole && std::isfinite(number) ? number : std::nan("");
}

} // namespace

nsVrexLabels::Assignment nsVrexLabels::parse(const std::string& option, const std::string& text,
                                             std::size_t count) {
    // Labels may hold equal signs, numbers do not.
    const std::size_t middle = text.rfind('=');
    Assignment result{text.substr(0, middle), {}};
    bool isFine = middle != std::string::npos && middle > 0;
    std::string_view rest = isFine ? std::string_view(text).substr(middle + 1) : "";
    while (isFine && result.values.size() < count) {
        const std::size_t comma = std::min(rest.find(','), rest.size());
        result.values.push_back(numberIn(rest.substr(0, comma)));
        const bool isLast = result.values.size() == count;
        isFine = !std::isnan(result.values.back()) && isLast == (comma == rest.size());
        rest.remove_prefix(isLast ? comma : std::min(comma + 1, rest.size()));
    }
    if (!isFine) {
        throw VrexToolFailure(VrexExitCode::USAGE, fmt::format("{}: \"{}\" is not {}.", option, text,
                                                               count == 1 ? "label=number" : "label=x,y,z"));
    }
    return result;
}
