#pragma once

#include <algorithm>
#include <cctype>
#include <string>
#include <utility>

/// Labels, names and texts of files may hold anything; nothing of it is to move the cursor.
namespace nsVrexHarmlessText {

/// The text with a question mark for each control character.
inline std::string of(std::string text) {
    const auto isControl = [](char letter) { return std::iscntrl(static_cast<unsigned char>(letter)) != 0; };
    std::ranges::replace_if(text, isControl, '?');
    return text;
}

} // namespace nsVrexHarmlessText
