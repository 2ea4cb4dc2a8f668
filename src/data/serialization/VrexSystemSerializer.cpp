#include "data/serialization/VrexSystemSerializer.h"

#include <algorithm>
#include <cstdint>
#include <iomanip>
#include <limits>
#include <ostream>
#include <sstream>
#include <stdexcept>

#include "data/VrexBaseObject.h"
#include "data/VrexLog.h"
#include "data/VrexUniformVisitor.h"
#include "data/VrexVisitable.h"
#include "data/serialization/VrexJsonKeys.h"
#include "data/serialization/VrexJsonLines.h"
#include "data/serialization/VrexJsonTolerances.h"
#include "tolvbase/LumoJson.h"

namespace keys = nsJsonKeys;

namespace {

constexpr nsJsonKeys::Key DRAG_ARRAYS[] = {keys::DRAG_TRANSFORMS, keys::DRAG_TRANSLATIONS,
                                           keys::DRAG_PARAMETERS, keys::DRAG_VARIABLES};
/// Besides the arrays.
constexpr nsJsonKeys::Key PLACED[] = {keys::REFERENCE_GEOMETRIES, keys::MOVE_AND_EVALUATE,
                                      keys::LINEAR_TOLERANCE, keys::ANGULAR_TOLERANCE};

template <class List>
bool contains(const List& list, std::string_view key) {
    return std::find(std::begin(list), std::end(list), key) != std::end(list);
}

/// The highest identifier, and how many objects have none.
class VrexIdVisitor : public VrexVisitor3D {
public:
    void visitBaseObject(VrexBaseObject& object) override {
        m_highest = std::max(m_highest, object.getID());
        m_missing += object.getID() == 0 ? 1 : 0;
    }
    std::uint64_t highest() const { return m_highest; }
    std::uint64_t missing() const { return m_missing; }

private:
    std::uint64_t m_highest = 0;
    std::uint64_t m_missing = 0;
};

} // namespace

VrexSystemSerializer::VrexSystemSerializer(const VrexSerializationParameters& parameters)
    : m_parameters(parameters) {}

VrexSystemSerializer::~VrexSystemSerializer() = default;

void VrexSystemSerializer::generateMissingObjectIDs(const VrexVisitable& system) const {
    if (!m_parameters.generateMissingIds) {
        return;
    }
    VrexIdVisitor ids;
    system.accept(ids);
    if (ids.missing() > std::numeric_limits<std::uint64_t>::max() - ids.highest()) {
        VREX_RAISE(std::out_of_range, "No identifiers are left for the objects without one.");
    }
    VrexUniformVisitor giver([last = ids.highest()](VrexBaseObject& object) mutable {
        if (object.getID() == 0) {
            object.setID(++last);
        }
    });
    system.accept(giver);
}

void VrexSystemSerializer::initializeRootNode(LumoJson& root) const {
    for (const nsJsonKeys::Key key : VrexJsonLines::KEYS) {
        root[key] = LumoJson::array();
    }
}

void VrexSystemSerializer::write(std::ostream& stream, const LumoJson& root) const {
    nsJsonTolerances::linear(root);
    nsJsonTolerances::angular(root);
    std::string text = "{\n";
    for (const nsJsonKeys::Key key : VrexJsonLines::KEYS) {
        appendArray(text, root, key);
    }
    appendEnd(text, root);
    stream << text;
}

void VrexSystemSerializer::writeArray(std::ostream& stream, const LumoJson& root,
                                      std::string_view key) const {
    std::string text;
    appendArray(text, root, key);
    stream << text;
}

void VrexSystemSerializer::appendEnd(std::string& text, const LumoJson& root) const {
    appendValue(text, root, keys::REFERENCE_GEOMETRIES);
    for (const nsJsonKeys::Key key : DRAG_ARRAYS) {
        appendArray(text, root, key);
    }
    appendValue(text, root, keys::MOVE_AND_EVALUATE);
    for (const std::string& tag : m_extendedInformationTags) {
        if (!hasPlace(tag)) {
            appendValue(text, root, tag);
        }
    }
    appendValue(text, root, keys::LINEAR_TOLERANCE);
    appendKey(text, keys::ANGULAR_TOLERANCE);
    text.append(root[keys::ANGULAR_TOLERANCE].dump()).append("\n}");
}

void VrexSystemSerializer::appendArray(std::string& text, const LumoJson& root, std::string_view key) const {
    const auto found = root.find(key);
    if (found == root.end()) {
        return;
    }
    const LumoJson& array = *found;
    if (!array.is_array()) {
        VREX_RAISE(std::runtime_error, "Array write error. The value by key is not a json array.");
    }
    if (array.empty() && !m_parameters.writeEmptyArrays) {
        return;
    }
    const std::string blanks(m_parameters.indentWidth, ' ');
    appendKey(text, key);
    text += "[\n";
    const char* separator = "";
    for (const LumoJson& element : array) {
        text.append(separator).append(blanks).append(blanks).append(element.dump());
        separator = ",\n";
    }
    text.append("\n").append(blanks).append("],\n");
}

void VrexSystemSerializer::appendKey(std::string& text, std::string_view key) const {
    std::ostringstream quoted;
    quoted << std::quoted(key);
    text.append(m_parameters.indentWidth, ' ').append(quoted.view()).append(": ");
}

void VrexSystemSerializer::appendValue(std::string& text, const LumoJson& root, std::string_view key) const {
    const auto found = root.find(key);
    if (found != root.end()) {
        appendKey(text, key);
        text.append(found->dump()).append(",\n");
    }
}

bool VrexSystemSerializer::hasPlace(std::string_view key) {
    return contains(VrexJsonLines::KEYS, key) || contains(DRAG_ARRAYS, key) || contains(PLACED, key);
}

void VrexSystemSerializer::addExtendedInformationTag(std::string_view key) {
    if (!contains(m_extendedInformationTags, key)) {
        m_extendedInformationTags.emplace_back(key);
    }
}
