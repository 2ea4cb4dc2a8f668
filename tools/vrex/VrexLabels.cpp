#include "tools/vrex/VrexLabels.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <span>
#include <string_view>
#include <unordered_set>

#include <fmt/format.h>

#include "data/VrexBaseGeometry.h"
#include "tools/vrex/VrexObjectNames.h"
#include "tools/vrex/VrexToolFailure.h"

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

using Places = std::vector<std::size_t>;
using Objects = std::vector<const VrexBaseGeometry*>;

template <class IsMeant>
Places placesOf(const Objects& objects, const IsMeant& isMeant) {
    Places places;
    for (std::size_t place = 0; place < objects.size(); ++place) {
        if (isMeant(*objects[place])) {
            places.push_back(place);
        }
    }
    return places;
}

Places placesOf(const Objects& objects, const std::string& label) {
    Places places = placesOf(objects, [&](const auto& object) { return object.label() == label; });
    if (places.empty() && label.starts_with('#')) {
        places = placesOf(objects,
                          [&](const auto& object) { return fmt::format("#{}", object.getID()) == label; });
    }
    return places;
}

/// Whether the object is built on all that stand at the places, itself left out.
bool carries(const VrexBaseGeometry& object, const Objects& objects, const Places& places) {
    std::unordered_set<const VrexBaseGeometry*> parts{&object};
    for (const auto& part : object.getGeometries()) {
        parts.insert(part.get());
    }
    return std::ranges::all_of(places, [&](std::size_t place) { return parts.contains(objects[place]); });
}

std::string namesOf(const Objects& objects, const Places& places) {
    constexpr std::size_t MOST = 3;
    std::string names;
    for (const std::size_t place : std::span(places).first(std::min(places.size(), MOST))) {
        names.append(names.empty() ? "" : ", ").append(nsVrexObjectNames::nameOf(*objects[place]));
    }
    return names.append(places.size() > MOST ? ", ..." : "");
}

} // namespace

std::size_t nsVrexLabels::find(const std::string& option, const std::string& what, const Objects& objects,
                               const std::string& label) {
    const Places places = placesOf(objects, label);
    if (places.empty()) {
        throw VrexToolFailure(VrexExitCode::USAGE,
                              fmt::format("{}: No {} is called \"{}\".", option, what, label));
    }
    const auto carrier = std::ranges::find_if(
        places, [&](std::size_t place) { return carries(*objects[place], objects, places); });
    if (carrier == places.end()) {
        throw VrexToolFailure(
            VrexExitCode::USAGE,
            fmt::format("{}: More than one {} is called \"{}\": {}. Take \"#\" and the identifier instead.",
                        option, what, label, namesOf(objects, places)));
    }
    return *carrier;
}

nsVrexLabels::Assignment nsVrexLabels::parse(const std::string& option, const std::string& text,
                                             std::size_t count) {
    // Labels may hold equal signs, numbers do not.
    const std::size_t middle = std::min(text.rfind('='), text.size());
    const bool isNamed = middle > 0 && middle < text.size();
    Assignment result{text.substr(0, middle), {}};
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
