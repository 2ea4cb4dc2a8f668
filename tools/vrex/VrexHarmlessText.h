#pragma once

#include <string>
#include <string_view>

/// Labels, names and texts of files may hold anything; nothing of it is to move the cursor, or to turn round
/// what stands beside it.
namespace nsVrexHarmlessText {

/// The text with `\u001b` for a control character, a line separator or a mark of the direction of writing,
/// and `\xff` for a byte that is no UTF-8.
std::string of(std::string_view text);

} // namespace nsVrexHarmlessText
