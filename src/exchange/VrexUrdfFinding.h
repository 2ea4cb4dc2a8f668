#pragma once

#include <string>

/// What a finding means for the import.
enum class VrexUrdfSeverity {
    Note,    ///< Content that has no counterpart by design, such as masses and meshes.
    Warning, ///< Doubtful content, and the message says what was made of it.
    Error    ///< Nothing is imported.
};

/// Something in a robot description that is not in the imported system as it stands in the file.
struct VrexUrdfFinding {
    VrexUrdfSeverity severity = VrexUrdfSeverity::Note;
    std::string file; ///< As it was named; empty for a text.
    int line = 0;     ///< From 1 on; 0 where there is none.
    std::string name; ///< Of the link, the joint or another named element, or the tag of one without a name.
    std::string message;  ///< A sentence that names the element.
    bool isDoubt = false; ///< An error that would be a warning where reading is not strict.
};
