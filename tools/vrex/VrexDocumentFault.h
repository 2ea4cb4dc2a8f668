#pragma once

#include <string>
#include <string_view>

class LumoJson;
class VrexSystem3DDeserializer;

/// Where a document fails.
struct VrexDocumentFault {
    std::string pointer; ///< A JSON pointer (RFC 6901); empty for the root.
    std::string where;   ///< The pointer, and the object's name where it is one.
    std::string message;
};

/// Looks where reading failed.
namespace nsVrexDocumentFault {

/// `deserializer` is the one that has just failed to read `json`, with `message`.
VrexDocumentFault find(const LumoJson& json, VrexSystem3DDeserializer& deserializer,
                       std::string_view message);

} // namespace nsVrexDocumentFault
