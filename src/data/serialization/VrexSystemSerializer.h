#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "data/VrexExport.h"
#include "data/serialization/VrexSerializationParameters.h"

class LumoJson;
class VrexVisitable;

/// What writing a system as a document needs, as far as it knows no dimension: the root and its text.
class VREX_DATA_EXPORT VrexSystemSerializer {
public:
    VrexSystemSerializer(const VrexSystemSerializer&) = delete;
    VrexSystemSerializer& operator=(const VrexSystemSerializer&) = delete;
    virtual ~VrexSystemSerializer();

    /// If the parameters ask for it: gives every object without identifier the next above the highest one, in
    /// the order of the visit. Throws `std::out_of_range`, before any object changes, when these do not
    /// suffice.
    void generateMissingObjectIDs(const VrexVisitable& system) const;
    /// Empty arrays for objects, variables, constraints and equations.
    void initializeRootNode(LumoJson& root) const;
    /// The text of a document, one object a line. Of the keys that are not known only those of the tags are
    /// written. Kept: in these only quotation marks and backslashes are escaped.
    ///
    /// Throws `std::runtime_error`, and writes nothing, for a document that lacks a tolerance, where an array
    /// should be and is not, and for numbers and texts that JSON does not have.
    void write(std::ostream& stream, const LumoJson& root) const;
    /// The array of that key, ready for the next one; nothing if there is none.
    void writeArray(std::ostream& stream, const LumoJson& root, std::string_view key) const;
    /// Each key once.
    void addExtendedInformationTag(std::string_view key);

protected:
    explicit VrexSystemSerializer(const VrexSerializationParameters& parameters);

    const VrexSerializationParameters& parameters() const { return m_parameters; }
    /// Whether the text has a place for the key, tagged or not.
    static bool hasPlace(std::string_view key);
    /// The rest of the text of a document behind its arrays of objects.
    void appendEnd(std::string& text, const LumoJson& root) const;

private:
    void appendArray(std::string& text, const LumoJson& root, std::string_view key) const;
    void appendKey(std::string& text, std::string_view key) const;
    /// One line, if the key is there.
    void appendValue(std::string& text, const LumoJson& root, std::string_view key) const;

    VrexSerializationParameters m_parameters;
    std::vector<std::string> m_extendedInformationTags;
};
