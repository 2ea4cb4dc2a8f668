#pragma once

#include <string>
#include <string_view>

namespace nsLumoJsonUnescape {

/// Appends what stands between the quotation marks of a string to `out`, with its escapes replaced. False for
/// an escape that is unknown and for half of a surrogate pair; `out` is of no use then.
[[nodiscard]] bool append(std::string& out, std::string_view escaped);

} // namespace nsLumoJsonUnescape
