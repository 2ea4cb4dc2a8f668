#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "data/VrexExport.h"

class VrexBaseConstraint;
class VrexBaseGeometry;
class VrexBaseObject;
class VrexConnectedComponent;
class VrexOutputStream;
class VrexStreamEncoder;

/// Packs a problem into one buffer for a solver, which `VrexStreamGraphDecoder` reads.
///
/// Objects are put into an order in which each stands behind what it names. What a geometry is built on, the
/// variables that it depends on and the constraints that a constraint is made of are added where the lists
/// lack them, and so are the variables, but not the geometries, that constraints bind. Nulls and repeats are
/// left out. Objects are told apart by identifier on the other side: equal identifiers of different
/// geometries or of different constraints mean the last of them, and the log warns of them.
///
/// An encoding measures first, so that the buffer is allocated once. Where an object cannot be written it
/// answers false, or throws what the object's encoder throws; the former buffer is then still there. One
/// thread at a time.
class VREX_DATA_EXPORT VrexStreamGraphEncoder {
public:
    using Geometries = std::vector<std::shared_ptr<VrexBaseGeometry>>;
    using Constraints = std::vector<std::shared_ptr<VrexBaseConstraint>>;
    using Components = std::vector<std::shared_ptr<VrexConnectedComponent>>;

    /// The objects of one component in the order of the stream. They are held by the lists that they were
    /// made of, or kept.
    struct VrexOrderedObjects {
        std::vector<VrexBaseGeometry*> geometries;
        std::vector<VrexBaseConstraint*> constraints;
        std::vector<std::shared_ptr<VrexBaseObject>> kept;
        bool hasRisingIds = false; ///< Then all of them differ.
    };

    VrexStreamGraphEncoder(const VrexStreamGraphEncoder&) = delete;
    VrexStreamGraphEncoder& operator=(const VrexStreamGraphEncoder&) = delete;
    virtual ~VrexStreamGraphEncoder();
    /// An encoder of objects onto the output; with null nothing is encoded.
    virtual std::unique_ptr<VrexStreamEncoder> getEncoder(VrexOutputStream* output) = 0;
    /// Writes what the solver found of the freedoms of the component's geometries.
    virtual bool encodeGeometriesDOF(const std::shared_ptr<VrexConnectedComponent>& component,
                                     VrexStreamEncoder* encoder) = 0;

    /// Two lists in one block.
    bool encodeConstraintGraph(const Geometries& geometries, const Constraints& constraints);
    /// One block of all components: identifier, lists, and over-constrained subsets of each. Components may
    /// have equal identifiers.
    bool encodeConstraintGraphs(const Components& components);

    /// Hands the buffer over, to be given back by `freeBuffer`; null, and the size 0, when there is none.
    [[nodiscard]] unsigned char* dumpBuffer(unsigned int& size);
    /// Null is let pass.
    static void freeBuffer(unsigned char* buffer);
    /// Frees the buffer.
    void reset();
    /// Frees the buffer and allocates one, whose bytes are anything; false where that fails.
    bool assign(unsigned int size);

protected:
    /// What is written of lists of objects: their blocks alone where the objects were measured before.
    enum class Content { OBJECTS, BLOCKS };

    VrexStreamGraphEncoder();
    /// What was moved from has no buffer.
    VrexStreamGraphEncoder(VrexStreamGraphEncoder&& other) noexcept;
    VrexStreamGraphEncoder& operator=(VrexStreamGraphEncoder&& other) noexcept;

    /// Runs `write` on a new buffer. False, and the buffer as that leaves it, where a step fails.
    bool encodeInto(unsigned int size, const std::function<bool(VrexStreamEncoder&)>& write);

    /// Puts the objects into order. With `measuring`, each is encoded there as soon as it has its place,
    /// which spares another walk over all of them; false, and the order not complete, where that refuses.
    static bool order(const Geometries& geometries, const Constraints& constraints,
                      VrexStreamEncoder* measuring, VrexOrderedObjects& out);
    /// Warns, once, where different geometries, or different constraints, have equal identifiers.
    static void adviseOfEqualIds(const std::vector<VrexOrderedObjects>& lists);

    static bool encodeGraph(const VrexOrderedObjects& objects, Content content, VrexStreamEncoder& encoder);
    /// `objects` has those of each component.
    bool encodeGraphs(const Components& components, const std::vector<VrexOrderedObjects>& objects,
                      Content content, VrexStreamEncoder& encoder);
    static bool encodeLists(const VrexOrderedObjects& objects, Content content, VrexStreamEncoder& encoder);
    static bool encodeOverConstrainedSubsets(const std::vector<std::vector<std::uint64_t>>& subsets,
                                             VrexStreamEncoder& encoder);

private:
    unsigned char* m_buffer = nullptr;
    unsigned int m_bufferSize = 0;
};
