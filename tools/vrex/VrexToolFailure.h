#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "tools/vrex/VrexExitCode.h"
#include "tools/vrex/VrexHarmlessText.h"

/// Ends a command: a sentence for the user, which names what it is about, and how the tool ends.
class VrexToolFailure : public std::runtime_error {
public:
    VrexToolFailure(VrexExitCode code, const std::string& sentence)
        : std::runtime_error(nsVrexHarmlessText::of(sentence)), m_code(code) {} // A zero would end it.
    VrexExitCode code() const { return m_code; }

private:
    VrexExitCode m_code;
};

/// A document that cannot be read, with the place where it fails.
class VrexDocumentFailure : public VrexToolFailure {
public:
    VrexDocumentFailure(const std::string& sentence, std::optional<std::string> pointer)
        : VrexToolFailure(VrexExitCode::INVALID, sentence), m_pointer(std::move(pointer)) {}
    /// A JSON pointer (RFC 6901); none where the text is no JSON at all.
    const std::optional<std::string>& pointer() const { return m_pointer; }

private:
    std::optional<std::string> m_pointer;
};
