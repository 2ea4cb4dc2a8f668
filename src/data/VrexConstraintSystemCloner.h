#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVariableDescriptor.h"
#include "data/VrexVisitor3D.h"

class VrexCloneTable;
class VrexVariableDescriptorInterface;

/// The base of what copies a system of geometries and constraints: the clones refer to each other as their
/// sources do, and to nothing of the source system.
///
/// A clone is what `makeCopy` gives, identifier and label included, without the snapshots of the source. Its
/// parent is the parent's clone where that was cloned, too, otherwise none. Variables and equations are
/// cloned here; a visit of a class that nobody clones throws `std::runtime_error`.
///
/// One cloner is for one copying, on one thread, while nobody changes the sources. After an exception it is
/// good for nothing.
class VREX_DATA_EXPORT VrexConstraintSystemCloner : public VrexVisitor3D {
public:
    VrexConstraintSystemCloner(const VrexConstraintSystemCloner&) = delete;
    VrexConstraintSystemCloner& operator=(const VrexConstraintSystemCloner&) = delete;
    ~VrexConstraintSystemCloner() override;

    /// The clones in the order in which they were made: what a clone is built on stands before it.
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const { return m_geometries; }
    std::vector<std::shared_ptr<VrexBaseConstraint>> getConstraints() const { return m_constraints; }
    /// Null for an object that was not cloned, and for null.
    std::shared_ptr<VrexBaseObject> findClone(const std::shared_ptr<VrexBaseObject>& object) const;

    /// Throws: the class of `object` is unknown here.
    void visitBaseObject(VrexBaseObject& object) override;
    void visitGeometryVariable(VrexGeometryVariable& variable) override;
    void visitCallbackEquation(VrexCallbackEquation& equation) override;
    void visitExpressionEquation(VrexExpressionEquation& equation) override;

protected:
    VrexConstraintSystemCloner();

    /// Clones all geometries, then all constraints, each with what it needs besides. Nulls are left out.
    void cloneAll(const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries,
                  const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints);
    /// Room for the clones of this many objects.
    void reserve(std::size_t count);
    /// The clones of all `objects`, null for null. Those made for it are the caller's: they are not listed,
    /// and both they and their sources have to stay as long as the cloner is used.
    template <class Object>
    std::vector<std::shared_ptr<Object>> takeClones(const std::vector<std::shared_ptr<Object>>& objects) {
        std::vector<std::shared_ptr<Object>> clones;
        clones.reserve(objects.size());
        forEach(objects, [&](const std::shared_ptr<Object>& object) {
            auto clone = cloneIfKnown(object);
            if (clone == nullptr && object != nullptr) {
                clone = std::static_pointer_cast<Object>(makeClone(object));
            }
            clones.push_back(std::move(clone));
        });
        describe();
        return clones;
    }
    /// Gives the clones made so far the clones of their parents.
    void linkParents();

    /// The clone of `object`, made now if there is none yet; null for null. Throws `std::runtime_error` for
    /// an object that needs itself.
    std::shared_ptr<VrexBaseObject> getClonedObject(const std::shared_ptr<VrexBaseObject>& object);
    /// Descriptors of the same parameters of the clones, under the same names.
    std::vector<VrexVariableDescriptor>
    cloneDescriptors(const std::vector<VrexVariableDescriptor>& descriptors);
    /// The clones of objects that were cloned before, null for null; throws `std::runtime_error` for any
    /// other.
    template <class Object>
    std::vector<std::shared_ptr<Object>> getNewObjects(const std::vector<std::shared_ptr<Object>>& objects) {
        std::vector<std::shared_ptr<Object>> clones;
        clones.reserve(objects.size());
        for (const std::shared_ptr<Object>& object : objects) {
            clones.push_back(cloneIfKnown(object));
            if (clones.back() == nullptr && object != nullptr) {
                raiseNotFound();
            }
        }
        return clones;
    }

    /// The beginning of each visit: whether the clone of `object` is to be made now. It is not when there is
    /// one; when the visit comes from outside it is made before this returns.
    bool isDue(VrexBaseObject& object);
    /// The end of each visit that was due. Where `cloneOf` had to give null for an object, the clone is given
    /// up: that object is cloned, and the visit comes again. Throws `std::runtime_error` for a clone of
    /// another class than its source.
    void setClone(std::shared_ptr<VrexBaseObject> clone);

    /// The visit of what refers to no other object.
    void cloneLeaf(VrexBaseObject& object);
    /// The visit of what names other objects by descriptors, which may name it in turn: the clone's own
    /// descriptors come when all is cloned.
    template <class Object>
    void cloneDescribed(Object& object) {
        if (isDue(object)) {
            const auto clone = copyOf(object);
            setClone(clone);
            describeLater(object, *clone);
        }
    }
    /// A copy without snapshots; where it refers to other objects, these are still the source's.
    template <class Object>
    static std::shared_ptr<Object> copyOf(Object& object) {
        return std::static_pointer_cast<Object>(copyWithoutBackup(object));
    }
    /// The same, bound to the clones of the source's geometries, which have to be there, and of its
    /// variables.
    template <class Constraint>
    std::shared_ptr<Constraint> boundCopyOf(Constraint& constraint) {
        auto clone = copyOf(constraint);
        rebind(*clone, constraint);
        return clone;
    }
    /// For visits: the clone of what the visited object refers to, null for null, and while it is still to be
    /// made.
    template <class Object>
    std::shared_ptr<Object> cloneOf(const std::shared_ptr<Object>& object) {
        auto clone = std::static_pointer_cast<Object>(findMade(object.get()));
        if (clone == nullptr && object != nullptr) {
            need(object);
        }
        return clone;
    }

private:
    class Visit;
    class Walk;

    /// Most of the time that a large system takes is waiting for its memory: asks early for what comes soon.
    template <class Object, class Work>
    static void forEach(const std::vector<std::shared_ptr<Object>>& objects, const Work& work) {
        constexpr std::size_t AHEAD = 8;
        for (std::size_t i = 0; i < objects.size(); ++i) {
            if (i + AHEAD < objects.size()) {
                prefetch(objects[i + AHEAD].get(), sizeof(Object));
            }
            work(objects[i]);
        }
    }
    /// Does nothing for null.
    static void prefetch(const void* place, std::size_t size) {
        constexpr std::size_t CACHE_LINE = 64;
        const auto address = reinterpret_cast<std::uintptr_t>(place);
        for (std::size_t offset = 0; offset < size; offset += CACHE_LINE) {
            __builtin_prefetch(reinterpret_cast<const void*>(address + offset));
        }
    }
    [[noreturn]] static void raiseNotFound();
    static std::shared_ptr<VrexBaseObject> copyWithoutBackup(VrexBaseObject& object);
    /// Null for an object without clone, and for null.
    std::shared_ptr<VrexBaseObject> findMade(const VrexBaseObject* object) const;
    /// The same; throws for an object whose clone is being made.
    std::shared_ptr<VrexBaseObject> findKnown(const VrexBaseObject* object) const;
    template <class Object>
    std::shared_ptr<Object> cloneIfKnown(const std::shared_ptr<Object>& object) const {
        return std::static_pointer_cast<Object>(findKnown(object.get()));
    }
    std::shared_ptr<VrexBaseObject> makeClone(const std::shared_ptr<VrexBaseObject>& object);
    void list(const std::shared_ptr<VrexBaseObject>& source, const std::shared_ptr<VrexBaseObject>& clone);
    void need(const std::shared_ptr<VrexBaseObject>& object);
    void rebind(VrexConstraint& clone, VrexConstraint& source);
    std::shared_ptr<VrexBaseGeometry> boundClone(const std::shared_ptr<VrexBaseGeometry>& geometry);
    void describeLater(const VrexVariableDescriptorInterface& source, VrexVariableDescriptorInterface& clone);
    void describe();

    /// By source. The source itself stands for a clone that is being made.
    std::unique_ptr<VrexCloneTable> m_clones;
    std::vector<std::shared_ptr<VrexBaseGeometry>> m_geometries;
    std::vector<std::shared_ptr<VrexBaseConstraint>> m_constraints;
    std::vector<std::shared_ptr<VrexBaseObject>> m_sources; ///< Of these: no other object gets their place.
    Visit* m_visit = nullptr;                               ///< The one that makes a clone.
    std::vector<std::pair<const VrexVariableDescriptorInterface*, VrexVariableDescriptorInterface*>>
        m_undescribed; ///< Sources, and clones that have the source's descriptors still.
    std::vector<const VrexConstraint*> m_children; ///< Sources that have a parent.
};
