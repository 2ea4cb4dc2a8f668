#include "exchange/VrexUrdfElement.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <unordered_set>

#include <tinyxml2.h>

#include "exchange/VrexUrdfFindings.h"
#include "exchange/VrexUrdfFrames.h"
#include "exchange/VrexUrdfNames.h"

namespace {

constexpr std::string_view BLANKS = " \t\r\n";

std::string_view withoutPrefix(std::string_view name) {
    const std::size_t colon = name.rfind(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

std::vector<std::string_view> wordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    std::size_t start = text.find_first_not_of(BLANKS);
    while (start != std::string_view::npos) {
        const std::size_t end = std::min(text.find_first_of(BLANKS, start), text.size());
        words.push_back(text.substr(start, end - start));
        start = text.find_first_not_of(BLANKS, end);
    }
    return words;
}

bool isAmong(std::string_view word, std::string_view list) {
    const auto words = wordsOf(list);
    return std::ranges::find(words, word) != words.end();
}

std::optional<double> numberOf(std::string_view word) {
    if (word.starts_with('+')) {
        word.remove_prefix(1);
    }
    double number = 0.0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    const bool isWhole = error == std::errc() && end == word.data() + word.size();
    return isWhole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<std::vector<double>> numbersOf(std::string_view text) {
    std::vector<double> numbers;
    for (const std::string_view word : wordsOf(text)) {
        const auto number = numberOf(word);
        if (!number.has_value()) {
            return std::nullopt;
        }
        numbers.push_back(*number);
    }
    return numbers;
}

using nsUrdfNames::quoted;

std::string tagged(std::string_view tag) { return std::string("<").append(tag).append(">"); }

} // namespace

std::string_view VrexUrdfElement::tag() const { return withoutPrefix(m_element->Name()); }

VrexUrdfPlace VrexUrdfElement::place() const { return {*m_file, m_element->GetLineNum()}; }

std::string VrexUrdfElement::ownName() const { return text("name").value_or(std::string(tag())); }

std::string VrexUrdfElement::nameOf(std::string_view attribute) const {
    return title() + ": the attribute " + quoted(attribute) + " of " + tagged(tag());
}

std::string VrexUrdfElement::title() const {
    const tinyxml2::XMLElement* element = m_element;
    while (element != nullptr && element->Attribute("name") == nullptr) {
        const tinyxml2::XMLNode* const parent = element->Parent();
        element = parent != nullptr ? parent->ToElement() : nullptr;
    }
    if (element == nullptr) {
        return tagged(tag());
    }
    return std::string(withoutPrefix(element->Name())).append(" ").append(quoted(element->Attribute("name")));
}

void VrexUrdfElement::reportRest(const VrexUrdfWords& words) const {
    for (const tinyxml2::XMLAttribute* attribute = m_element->FirstAttribute(); attribute != nullptr;
         attribute = attribute->Next()) {
        reportAttribute(*attribute, words);
    }
    std::unordered_set<std::string_view> known;
    for (const VrexUrdfElement& child : children()) {
        reportChild(child, words, known.insert(child.tag()).second);
    }
    if (holdsText()) {
        warn(ownName(), title() + ": " + tagged(tag()) + " holds text, which is left out.");
    }
}

void VrexUrdfElement::reportUnused(std::string_view tags) const {
    for (const VrexUrdfElement& child : children()) {
        if (isAmong(child.tag(), tags)) {
            reportWithoutCounterpart(child);
        }
    }
}

void VrexUrdfElement::reportWithoutCounterpart(const VrexUrdfElement& child) const {
    child.note(child.ownName(), title() + ": " + tagged(child.tag()) + " has no counterpart.");
}

bool VrexUrdfElement::holdsText() const {
    const tinyxml2::XMLNode* node = m_element->FirstChild();
    while (node != nullptr && (node->ToText() == nullptr || wordsOf(node->Value()).empty())) {
        node = node->NextSibling();
    }
    return node != nullptr;
}

void VrexUrdfElement::reportAttribute(const tinyxml2::XMLAttribute& attribute,
                                      const VrexUrdfWords& words) const {
    const std::string_view name = withoutPrefix(attribute.Name());
    const bool isNamespace = std::string_view(attribute.Name()).starts_with("xmlns");
    if (isNamespace || isAmong(name, words.attributes)) {
        return;
    }
    const std::string what = nameOf(name);
    if (isAmong(name, words.otherAttributes)) {
        note(std::string(name), what + " has no counterpart.");
    } else {
        warn(std::string(name), what + " is not known and left out.");
    }
}

void VrexUrdfElement::reportChild(const VrexUrdfElement& child, const VrexUrdfWords& words,
                                  bool isFirst) const {
    const std::string_view tag = child.tag();
    const std::string what = title() + ": " + tagged(tag);
    if (isAmong(tag, words.often)) {
        return;
    }
    if (isAmong(tag, words.once)) {
        if (!isFirst) {
            child.refuse(child.ownName(), what + " stands here twice.");
        }
    } else if (isAmong(tag, words.other)) {
        reportWithoutCounterpart(child);
    } else if (child.isMacro()) {
        child.doubt(std::string(tag),
                    title() + ": " + tagged(child.m_element->Name()) +
                        " is a macro, which xacro has to expand first.",
                    "It is left out.");
    } else {
        child.doubt(std::string(tag), what + " is not known.", "It is left out.");
    }
}

bool VrexUrdfElement::isMacro() const { return std::string_view(m_element->Name()).starts_with("xacro:"); }

std::vector<VrexUrdfElement> VrexUrdfElement::children() const {
    std::vector<VrexUrdfElement> result;
    for (const tinyxml2::XMLElement* child = m_element->FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        result.emplace_back(*child, *m_file, *m_findings);
    }
    return result;
}

std::optional<VrexUrdfElement> VrexUrdfElement::child(std::string_view tag) const {
    for (const tinyxml2::XMLElement* child = m_element->FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        if (withoutPrefix(child->Name()) == tag) {
            return VrexUrdfElement(*child, *m_file, *m_findings);
        }
    }
    return std::nullopt;
}

std::optional<VrexUrdfElement> VrexUrdfElement::requiredChild(std::string_view tag) const {
    auto result = child(tag);
    if (!result.has_value()) {
        refuse(ownName(), title() + ": " + tagged(tag) + " is missing.");
    }
    return result;
}

std::optional<std::string> VrexUrdfElement::text(std::string_view attribute) const {
    for (const tinyxml2::XMLAttribute* known = m_element->FirstAttribute(); known != nullptr;
         known = known->Next()) {
        if (withoutPrefix(known->Name()) == attribute) {
            return known->Value();
        }
    }
    return std::nullopt;
}

std::string VrexUrdfElement::requiredText(std::string_view attribute) const {
    const auto known = text(attribute);
    if (!known.has_value() || known->empty()) {
        refuse(ownName(), title() + ": " + tagged(tag()) + " needs the attribute " + quoted(attribute) + ".");
    }
    return known.value_or("");
}

std::optional<double> VrexUrdfElement::number(std::string_view attribute) const {
    const auto known = text(attribute);
    if (!known.has_value()) {
        return std::nullopt;
    }
    const auto numbers = numbersOf(*known);
    if (!numbers.has_value() || numbers->size() != 1) {
        refuse(ownName(), nameOf(attribute) + " is no number: " + quoted(*known) + ".");
        return std::nullopt;
    }
    if (!nsUrdfFrames::isModest(numbers->front())) {
        refuse(ownName(), nameOf(attribute) + " holds a number beyond 1e100: " + quoted(*known) + ".");
        return std::nullopt;
    }
    return numbers->front();
}

double VrexUrdfElement::requiredSize(std::string_view attribute) const {
    const double size = requiredText(attribute).empty() ? 1.0 : number(attribute).value_or(1.0);
    if (!(size > 0.0)) {
        refuse(ownName(), nameOf(attribute) + " must be above 0.");
    }
    return size;
}

VrexVector3DT<double> VrexUrdfElement::vector(std::string_view attribute,
                                              const VrexVector3DT<double>& fallback) const {
    const auto known = text(attribute);
    if (!known.has_value()) {
        return fallback;
    }
    const auto numbers = numbersOf(*known);
    if (!numbers.has_value() || numbers->size() != 3) {
        refuse(ownName(), nameOf(attribute) + " needs three numbers: " + quoted(*known) + ".");
        return fallback;
    }
    if (!std::ranges::all_of(*numbers, nsUrdfFrames::isModest)) {
        refuse(ownName(), nameOf(attribute) + " holds a number beyond 1e100: " + quoted(*known) + ".");
        return fallback;
    }
    return {(*numbers)[0], (*numbers)[1], (*numbers)[2]};
}

VrexTransformation3DT<double> VrexUrdfElement::origin() const {
    const auto origin = child("origin");
    if (!origin.has_value()) {
        return {};
    }
    origin->reportRest({.attributes = "xyz rpy"});
    return {origin->vector("xyz", VrexVector3DT<double>::ZERO()),
            nsUrdfFrames::turnBy(origin->vector("rpy", VrexVector3DT<double>::ZERO()))};
}

bool VrexUrdfElement::isStrict() const { return m_findings->isStrict(); }

void VrexUrdfElement::note(const std::string& name, const std::string& message) const {
    m_findings->note(place(), name, message);
}

void VrexUrdfElement::warn(const std::string& name, const std::string& message) const {
    m_findings->warn(place(), name, message);
}

void VrexUrdfElement::doubt(const std::string& name, const std::string& message,
                            const std::string& remedy) const {
    m_findings->doubt(place(), name, message, remedy);
}

void VrexUrdfElement::refuse(const std::string& name, const std::string& message) const {
    m_findings->refuse(place(), name, message);
}
