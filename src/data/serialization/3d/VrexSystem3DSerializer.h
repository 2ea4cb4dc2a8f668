#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "data/VrexExport.h"
#include "data/serialization/VrexSerializationParameters.h"
#include "data/serialization/VrexSystemSerializer.h"
#include "tolvbase/LumoJson.h"

class VrexImmutableSystem3D;
class VrexJsonLines;
class VrexObject3DSerializer;
class VrexTransform3D;

/// Writes systems as documents, one after the other; `docs/formats.md` tells every key. One thread at a time.
class VREX_DATA_EXPORT VrexSystem3DSerializer final : public VrexSystemSerializer {
public:
    explicit VrexSystem3DSerializer(const VrexSerializationParameters& parameters);
    ~VrexSystem3DSerializer() override;

    /// Makes the document of `system`, in place of the one before. The objects are not changed, unless
    /// missing identifiers are to be generated. Throws `std::runtime_error` for a system that cannot be
    /// written, such as one whose objects refer to later ones; there is no document then.
    bool serialize(const VrexImmutableSystem3D& system);
    /// The document; null before there is one. Valid until the next change of this serializer. Its objects
    /// are read from their text when it is first asked for.
    const LumoJson& json() const;
    /// The text of the document, empty before there is one. Valid as long.
    std::string_view jsonStream();
    /// The text of any document.
    std::string jsonToStream(const LumoJson& json) const;
    /// Puts a value into the document, and its key among those that the text tells. False, and nothing
    /// changed, before there is a document and for the keys whose values the system tells.
    bool addExtendedInformation(std::string_view key, const LumoJson& value);

private:
    friend VREX_DATA_EXPORT void serialize(const VrexImmutableSystem3D& system, LumoJson& json,
                                           const VrexSerializationParameters& parameters);

    static void writeTransform(const VrexTransform3D& transform, const VrexObject3DSerializer& objects,
                               LumoJson& root);
    /// Puts the objects into the document, once.
    LumoJson& completeResult() const;

    std::unique_ptr<VrexJsonLines> m_lines;     ///< The text; null without a document.
    mutable std::unique_ptr<LumoJson> m_result; ///< Null without a document.
    mutable bool m_isComplete = false;          ///< Whether the document has its objects yet.
};

/// Writes `system` into `json`. Throws what `VrexSystem3DSerializer` throws; `json` is as it was then.
VREX_DATA_EXPORT void serialize(const VrexImmutableSystem3D& system, LumoJson& json,
                                const VrexSerializationParameters& parameters);
