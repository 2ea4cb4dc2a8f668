#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/VrexTransformation3DT.h"
#include "data/VrexVector3DT.h"
#include "exchange/VrexUrdfPlace.h"

class VrexUrdfFindings;

namespace tinyxml2 {
class XMLAttribute;
class XMLElement;
} // namespace tinyxml2

/// What an element may hold: words, separated by blanks.
struct VrexUrdfWords {
    std::string_view once = {};            ///< Tags that are read, one of each.
    std::string_view often = {};           ///< Tags that are read, any number of each.
    std::string_view other = {};           ///< Tags of the format that have no counterpart.
    std::string_view attributes = {};      ///< Those that are read.
    std::string_view otherAttributes = {}; ///< Those of the format that have no counterpart.
};

/// An element of a robot description. Tags and attributes go by their names without prefix. What is not as it
/// should be goes to the findings.
class VrexUrdfElement {
public:
    /// All three outlive this object.
    VrexUrdfElement(const tinyxml2::XMLElement& element, const std::string& file, VrexUrdfFindings& findings)
        : m_element(&element), m_file(&file), m_findings(&findings) {}

    std::string_view tag() const;
    VrexUrdfPlace place() const;
    /// Tag and name of this element, or of the closest around it that has a name.
    std::string title() const;

    /// Names every tag and attribute that is not read, and tells of text.
    void reportRest(const VrexUrdfWords& words) const;

    /// Notes children of these tags, which `reportRest` takes for read, as without counterpart.
    void reportUnused(std::string_view tags) const;

    std::vector<VrexUrdfElement> children() const;
    std::optional<VrexUrdfElement> child(std::string_view tag) const;
    /// Refused, and empty, where there is none.
    std::optional<VrexUrdfElement> requiredChild(std::string_view tag) const;

    std::optional<std::string> text(std::string_view attribute) const;
    /// Refused, and empty, where there is none.
    std::string requiredText(std::string_view attribute) const;
    /// Empty where there is none; refused where it is no number or too large.
    std::optional<double> number(std::string_view attribute) const;
    /// Refused, and 1 or the number itself, where there is none, or it is too large or not above 0.
    double requiredSize(std::string_view attribute) const;
    /// Three numbers; `fallback` where there are none, refused where they are not three or too large.
    VrexVector3DT<double> vector(std::string_view attribute, const VrexVector3DT<double>& fallback) const;

    /// The pose that <origin> tells; the identity where there is none.
    VrexTransformation3DT<double> origin() const;

    bool isStrict() const;
    void note(const std::string& name, const std::string& message) const;
    void warn(const std::string& name, const std::string& message) const;
    void doubt(const std::string& name, const std::string& message, const std::string& remedy) const;
    void refuse(const std::string& name, const std::string& message) const;

private:
    /// `isFirst`: of its tag.
    void reportChild(const VrexUrdfElement& child, const VrexUrdfWords& words, bool isFirst) const;
    void reportWithoutCounterpart(const VrexUrdfElement& child) const;
    void reportAttribute(const tinyxml2::XMLAttribute& attribute, const VrexUrdfWords& words) const;
    bool holdsText() const;
    /// Whether it is for the macro processor that descriptions are often written for.
    bool isMacro() const;
    std::string ownName() const;
    /// Such as `joint "elbow": the attribute "xyz" of <axis>`.
    std::string nameOf(std::string_view attribute) const;

    const tinyxml2::XMLElement* m_element;
    const std::string* m_file;
    VrexUrdfFindings* m_findings;
};
