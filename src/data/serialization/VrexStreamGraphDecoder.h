#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "data/VrexExport.h"

class VrexBaseConstraint;
class VrexBaseGeometry;
class VrexConnectedComponent;
class VrexStreamDecoder;

/// Unpacks the problems that `VrexStreamGraphEncoder` packs. Every call reads one outermost block; what
/// stands behind it is not looked at.
///
/// A buffer that is null, cut off, or makes no sense gives false; what was read by then is in the lists,
/// which are cleared first. An object of a kind that there is not throws `std::bad_optional_access`. No
/// buffer does worse, unless callbacks are allowed. One thread at a time.
class VREX_DATA_EXPORT VrexStreamGraphDecoder {
public:
    using Geometries = std::vector<std::shared_ptr<VrexBaseGeometry>>;
    using Constraints = std::vector<std::shared_ptr<VrexBaseConstraint>>;
    using Components = std::vector<std::shared_ptr<VrexConnectedComponent>>;

    virtual ~VrexStreamGraphDecoder();
    /// A decoder of the objects in the buffer, which has to outlive it.
    virtual std::unique_ptr<VrexStreamDecoder> getDecoder(const unsigned char* buffer, unsigned int size) = 0;
    /// Reads what the encoder's `encodeGeometriesDOF` writes into the component.
    virtual bool decodeGeometriesDOF(VrexStreamDecoder* decoder,
                                     std::shared_ptr<VrexConnectedComponent>& component) = 0;

    /// Two lists in one block.
    bool decodeConstraintGraph(const unsigned char* buffer, unsigned int size, Geometries& geometries,
                               Constraints& constraints);
    /// One block of all components. Each refers to its own copies of the objects that others have, too.
    bool decodeConstraintGraphs(const unsigned char* buffer, unsigned int size, Components& components);

    /// Whether callback equations are read, by default they are; otherwise a stream with one is refused.
    /// Their function is an address of this process, which is called when the equation is evaluated: to be
    /// refused in a stream of doubtful origin.
    void setCallbacksAllowed(bool allowed) { m_callbacksAllowed = allowed; }
    bool areCallbacksAllowed() const { return m_callbacksAllowed; }

protected:
    VrexStreamGraphDecoder() = default;
    VrexStreamGraphDecoder(const VrexStreamGraphDecoder&) = default;
    VrexStreamGraphDecoder& operator=(const VrexStreamGraphDecoder&) = default;

    /// Runs `read` in the outermost block.
    bool decode(const unsigned char* buffer, unsigned int size,
                const std::function<bool(VrexStreamDecoder&)>& read);
    /// Appends the objects of a list, all of which have to be geometries or variables.
    static bool decodeGeometries(VrexStreamDecoder& decoder, Geometries& geometries);
    /// The same of constraints and equations.
    static bool decodeConstraints(VrexStreamDecoder& decoder, Constraints& constraints);
    /// Appends a list of identifiers for each subset.
    bool decodeOverConstraintSubsets(VrexStreamDecoder* decoder,
                                     std::vector<std::vector<std::uint64_t>>& subsets);

private:
    std::shared_ptr<VrexConnectedComponent> decodeComponent(VrexStreamDecoder& decoder);

    bool m_callbacksAllowed = true;
};
