#include "data/serialization/VrexSystemSerializer.h"

#include <algorithm>
#include <cstdint>
#include <iomanip>
#include <limits>
#include <ostream>
#include <stdexcept>

#include "data/VrexBaseObject.h"
#include "data/VrexLog.h"
#include "data/VrexUniformVisitor.h"
#include "data/VrexVisitable.h"
#include "data/serialization/VrexJsonKeys.h"
#include "data/serialization/VrexJsonTolerances.h"
#include "tolvbase/LumoJson.h"

namespace keys = nsJsonKeys;

namespace {

constexpr nsJsonKeys::Key OBJECT_ARRAYS[] = {keys::OBJECTS, keys::VARIABLES, keys::CONSTRAINTS,
                                             keys::EQUATIONS};
constexpr nsJsonKeys::Key DRAG_ARRAYS[] = {keys::DRAG_TRANSFORMS, keys::DRAG_TRANSLATIONS,
                                           keys::DRAG_PARAMETERS, keys::DRAG_VARIABLES};
/// Besides these arrays.
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

/// The beginning of a line, or of an element at the second level.
void indent(std::ostream& stream, std::uint64_t width, int levels = 1) {
    const std::string blanks(width, ' ');
    for (int level = 0; level < levels; ++level) {
        stream << blanks;
    }
}

void writeKey(std::ostream& stream, std::uint64_t indentWidth, std::string_view key) {
    indent(stream, indentWidth);
    stream << std::quoted(key) << ": ";
}

/// One line, if the key is there.
void writeValue(std::ostream& stream, std::uint64_t indentWidth, const LumoJson& root, std::string_view key,
                const char* end = ",\n") {
    const auto found = root.find(key);
    if (found != root.end()) {
        writeKey(stream, indentWidth, key);
        stream << found->dump() << end;
    }
}

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
    for (const nsJsonKeys::Key key : OBJECT_ARRAYS) {
        root[key] = LumoJson::array();
    }
}

void VrexSystemSerializer::write(std::ostream& stream, const LumoJson& root) const {
    nsJsonTolerances::linear(root);
    nsJsonTolerances::angular(root);
    const std::uint64_t width = m_parameters.indentWidth;
    stream << "{\n";
    for (const nsJsonKeys::Key key : OBJECT_ARRAYS) {
        writeArray(stream, root, key);
    }
    writeValue(stream, width, root, keys::REFERENCE_GEOMETRIES);
    for (const nsJsonKeys::Key key : DRAG_ARRAYS) {
        writeArray(stream, root, key);
    }
    writeValue(stream, width, root, keys::MOVE_AND_EVALUATE);
    for (const std::string& tag : m_extendedInformationTags) {
        if (!hasPlace(tag)) {
            writeValue(stream, width, root, tag);
        }
    }
    writeValue(stream, width, root, keys::LINEAR_TOLERANCE);
    writeValue(stream, width, root, keys::ANGULAR_TOLERANCE, "\n");
    stream << '}';
}

void VrexSystemSerializer::writeArray(std::ostream& stream, const LumoJson& root,
                                      std::string_view key) const {
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
    writeKey(stream, m_parameters.indentWidth, key);
    stream << "[\n";
    const char* separator = "";
    for (const LumoJson& element : array) {
        stream << separator;
        indent(stream, m_parameters.indentWidth, 2);
        stream << element.dump();
        separator = ",\n";
    }
    stream << '\n';
    indent(stream, m_parameters.indentWidth);
    stream << "],\n";
}

bool VrexSystemSerializer::hasPlace(std::string_view key) {
    return contains(OBJECT_ARRAYS, key) || contains(DRAG_ARRAYS, key) || contains(PLACED, key);
}

void VrexSystemSerializer::addExtendedInformationTag(std::string_view key) {
    if (!contains(m_extendedInformationTags, key)) {
        m_extendedInformationTags.emplace_back(key);
    }
}
