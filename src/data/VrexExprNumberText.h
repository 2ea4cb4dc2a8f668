#pragma once

#include <string_view>

/// Hidden: reads the numbers of expression texts.
namespace nsExprNumberText {

/// The value of the longest number at the front of `text`, which begins with a digit and has no sign, in
/// every locale with a point. Infinite for what is too large, 0 for what is too small.
double read(std::string_view text);

} // namespace nsExprNumberText
