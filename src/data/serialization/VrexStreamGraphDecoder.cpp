#include "data/serialization/VrexStreamGraphDecoder.h"

#include <utility>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/graph/VrexConnectedComponent.h"
#include "data/serialization/VrexStreamDecoder.h"

namespace {

/// Appends the objects of a list. `find` gives the known object of an identifier as what the list holds,
/// which saves a cast; only of a decoder that does not make known what it decodes it gives another one.
template <class Object, class Find>
bool decodeObjects(VrexStreamDecoder& decoder, std::vector<std::shared_ptr<Object>>& objects, Find find) {
    return decoder.readList([&] {
        auto decoded = decoder.decodeObject();
        if (decoded == nullptr) {
            return false;
        }
        Object* object = find(decoded->getID());
        if (object != decoded.get()) {
            object = dynamic_cast<Object*>(decoded.get());
        }
        if (object == nullptr) {
            return false;
        }
        objects.emplace_back(std::move(decoded), object);
        return true;
    });
}

} // namespace

VrexStreamGraphDecoder::~VrexStreamGraphDecoder() = default;

bool VrexStreamGraphDecoder::decodeConstraintGraph(const unsigned char* buffer, unsigned int size,
                                                   Geometries& geometries, Constraints& constraints) {
    geometries.clear();
    constraints.clear();
    return decode(buffer, size, [&](VrexStreamDecoder& decoder) {
        return decodeGeometries(decoder, geometries) && decodeConstraints(decoder, constraints);
    });
}

bool VrexStreamGraphDecoder::decodeConstraintGraphs(const unsigned char* buffer, unsigned int size,
                                                    Components& components) {
    components.clear();
    const auto addNext = [&](VrexStreamDecoder& decoder) {
        auto component = decodeComponent(decoder);
        const bool isRead = component != nullptr;
        if (isRead) {
            components.push_back(std::move(component));
        }
        return isRead;
    };
    return decode(buffer, size, [&](VrexStreamDecoder& decoder) {
        bool isRead = true;
        while (isRead && !decoder.isAtEnd()) {
            isRead = addNext(decoder);
        }
        return isRead;
    });
}

bool VrexStreamGraphDecoder::decode(const unsigned char* buffer, unsigned int size,
                                    const std::function<bool(VrexStreamDecoder&)>& read) {
    const auto decoder = getDecoder(buffer, size);
    if (decoder == nullptr) {
        return false;
    }
    decoder->setCallbacksAllowed(m_callbacksAllowed);
    return decoder->readBlock([&] { return read(*decoder); });
}

bool VrexStreamGraphDecoder::decodeGeometries(VrexStreamDecoder& decoder, Geometries& geometries) {
    return decodeObjects(decoder, geometries,
                         [&](std::uint64_t id) { return decoder.findGeometry(id).get(); });
}

bool VrexStreamGraphDecoder::decodeConstraints(VrexStreamDecoder& decoder, Constraints& constraints) {
    return decodeObjects(decoder, constraints,
                         [&](std::uint64_t id) { return decoder.findConstraint(id).get(); });
}

/// Null where it cannot be read.
std::shared_ptr<VrexConnectedComponent> VrexStreamGraphDecoder::decodeComponent(VrexStreamDecoder& decoder) {
    std::uint64_t id = 0;
    Geometries geometries;
    Constraints constraints;
    if (!decoder.readU64(id) || !decodeGeometries(decoder, geometries) ||
        !decodeConstraints(decoder, constraints)) {
        return nullptr;
    }
    auto component = std::make_shared<VrexConnectedComponent>(geometries, constraints);
    component->assignID(id);
    const bool read = decodeOverConstraintSubsets(&decoder, component->getOverConstrainedSubsets()) &&
                      decodeGeometriesDOF(&decoder, component);
    return read ? std::move(component) : nullptr;
}

bool VrexStreamGraphDecoder::decodeOverConstraintSubsets(VrexStreamDecoder* decoder,
                                                         std::vector<std::vector<std::uint64_t>>& subsets) {
    return decoder->readList([&] { return decoder->readIdList(subsets.emplace_back()); });
}
