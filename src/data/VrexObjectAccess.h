#pragma once

#include <memory>
#include <new>
#include <utility>

/// Hidden: the one way past the private constructors of the object classes, which name it as their friend.
///
/// An object and the reference counts of its shared pointer are one allocation.
class VrexObjectAccess {
public:
    template <class Object, class... Arguments>
    [[nodiscard]] static std::shared_ptr<Object> make(Arguments&&... arguments) {
        return std::allocate_shared<Object>(Allocator<Object>{}, std::forward<Arguments>(arguments)...);
    }

private:
    template <class Object>
    struct Allocator : std::allocator<Object> {
        template <class Other>
        struct rebind {
            using other = Allocator<Other>;
        };
        Allocator() = default;
        template <class Other>
        explicit Allocator(const Allocator<Other>&) {}

        template <class Other, class... Arguments>
        void construct(Other* place, Arguments&&... arguments) {
            VrexObjectAccess::construct(place, std::forward<Arguments>(arguments)...);
        }
    };

    template <class Object, class... Arguments>
    static void construct(Object* place, Arguments&&... arguments) {
        ::new (static_cast<void*>(place)) Object(std::forward<Arguments>(arguments)...);
    }
};
