#pragma once

#include <tuple>
#include <type_traits>
#include <utility>

/// Hidden: keeps members across an assignment of the whole object. Moves them out, and puts them back at the
/// end of the scope, thrown or not.
template <class... Members>
class VrexMemberKeeper {
    static_assert((std::is_nothrow_move_assignable_v<Members> && ...),
                  "putting a member back must not throw");
    static_assert((std::is_nothrow_move_constructible_v<Members> && ...),
                  "moving a member out must not throw");

public:
    explicit VrexMemberKeeper(Members&... members) noexcept
        : m_members(members...), m_kept(std::move(members)...) {}
    VrexMemberKeeper(const VrexMemberKeeper&) = delete;
    VrexMemberKeeper& operator=(const VrexMemberKeeper&) = delete;
    ~VrexMemberKeeper() { m_members = std::move(m_kept); }

private:
    std::tuple<Members&...> m_members;
    std::tuple<Members...> m_kept;
};
