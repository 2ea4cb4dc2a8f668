#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "data/VrexExport.h"
#include "data/VrexObjectType.h"
#include "data/VrexParameterVector.h"

class VrexVariableDescriptor;
class VrexVisitor3D;

/// The root of everything that a system stores: geometries, variables, constraints, equations.
///
/// An object has a base kind, an identifier, a label, a flat vector of real parameters, a dirty flag and a
/// stack of snapshots of itself. It is always held by shared pointers: concrete classes have private
/// constructors and a static `create`. A new object is dirty, has identifier 0 (none), an empty label and no
/// snapshot. There are no locks: one system belongs to one thread at a time.
class VREX_DATA_EXPORT VrexBaseObject : public std::enable_shared_from_this<VrexBaseObject> {
public:
    /// A new object equal to this one, of the same class: identifier, label, parameters, dirty flag, own
    /// fields. It shares the backup with this one.
    virtual std::shared_ptr<VrexBaseObject> makeCopy() = 0;
    /// The first part of generated names, such as "p" in "p17_3".
    virtual const char* getNamePrefix() const = 0;
    /// Calls the visit operation of the object's own class.
    virtual void accept(VrexVisitor3D& visitor);
    virtual ~VrexBaseObject();

    VrexObjectType baseType() const { return m_type; }

    /// 0 means that none is assigned; otherwise unique within one manager.
    std::uint64_t getID() const { return m_id; }
    void setID(std::uint64_t id) { m_id = id; }

    /// Free text; changing it here leaves the dirty flag alone.
    std::string& label() { return m_label; }
    const std::string& label() const { return m_label; }

    /// Whether the object changed since the flag was last cleared.
    bool isDirty() const { return m_dirty; }
    void setDirty(bool dirty) { m_dirty = dirty; }

    /// Pushes a snapshot of this object: the new backup keeps the former one as its own.
    void backup();
    /// Pops the latest snapshot. Everything comes back from it, the dirty flag and the older snapshots
    /// included, except the identifier and the label, which stay. Does nothing without a snapshot.
    void restore();
    /// Drops all snapshots.
    void clearBackup();
    /// Takes over everything of `other`, its snapshots included, except what the class keeps: always the
    /// identifier and the label. Does nothing for null; throws `std::bad_cast` for an object of another
    /// class, nothing changed.
    void updateFrom(std::shared_ptr<VrexBaseObject> other);

    /// The exact test: as many parameters, each pair equal as floating-point numbers. -0.0 equals 0.0, and a
    /// NaN equals nothing, so an object that holds one differs from itself.
    bool isEqualParameters(const VrexBaseObject& other) const;

private:
    /// Assigns the whole of `copy`, an object of the same class, to this object; `std::bad_cast` for another
    /// class.
    virtual void restoreFromCopy(const VrexBaseObject& copy) = 0;

protected:
    /// The body of `updateFrom`; a class that keeps more than identifier and label overrides it.
    virtual void doUpdateFrom(const VrexBaseObject& other);

    explicit VrexBaseObject(VrexObjectType type) : m_type(type) {}
    /// With `parameterCount` zeros.
    VrexBaseObject(VrexObjectType type, std::uint32_t parameterCount);
    VrexBaseObject(const VrexBaseObject& other);
    VrexBaseObject(VrexBaseObject&& other) noexcept;
    VrexBaseObject& operator=(const VrexBaseObject& other);
    VrexBaseObject& operator=(VrexBaseObject&& other) noexcept;

    /// Unchecked, as is `setParameter`, which leaves the dirty flag alone: callers use the class's index
    /// constants.
    double getParameter(std::uint32_t index) const { return m_parameters[index]; }
    void setParameter(std::uint32_t index, double value) { m_parameters[index] = value; }
    std::uint32_t getParameterSize() const { return m_parameters.size(); }

    /// A handle of parameter `index` of this object; an empty or null name asks for the generated one.
    /// Throws `std::bad_weak_ptr` when no shared pointer owns this object.
    VrexVariableDescriptor makeVariableDescriptor(std::uint32_t index, const char* name);

    /// Assigns the whole of `source` but keeps identifier and label, also when the assignment throws.
    void doRestore(const VrexBaseObject& source);

    /// The latest snapshot, null when there is none.
    std::shared_ptr<VrexBaseObject> getBackup() const { return m_backup; }
    /// The latest snapshot as what it is, an object of the asking class.
    template <class Object>
    std::shared_ptr<const Object> getBackupAs() const {
        return std::static_pointer_cast<const Object>(m_backup);
    }

private:
    friend class VrexVariableDescriptor;

    VrexObjectType m_type;
    std::uint64_t m_id = 0;
    std::string m_label;
    std::shared_ptr<VrexBaseObject> m_backup;
    VrexParameterVector m_parameters;
    bool m_dirty = true;
};
