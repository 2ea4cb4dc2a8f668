#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <limits>
#include <utility>
#include <vector>

#include "data/constraint/3d/VrexConstraint3D.h"
#include "solver/contacts/VrexContactGap.h"

namespace {

using Vector = VrexSolverShape::Vector;
using nsContactFormulas::reachFrom;
using nsContactFormulas::reachOf;

/// The parameters of paths, to be tried and put back.
class Places {
public:
    explicit Places(std::vector<VrexContactPath> paths) : m_paths(std::move(paths)) {
        for (const VrexContactPath& path : m_paths) {
            for (std::size_t i = 0; i < path.parameterCount(); ++i) {
                m_values.push_back(path.body->size(i));
            }
        }
    }
    void restore() const {
        auto value = m_values.begin();
        for (const VrexContactPath& path : m_paths) {
            for (std::size_t i = 0; i < path.parameterCount(); ++i) {
                path.body->setSize(i, *value++, path.body->isLength(i));
            }
        }
    }

private:
    std::vector<VrexContactPath> m_paths;
    std::vector<double> m_values;
};

/// Ways to go on from a place, one after the other.
using Searches = std::vector<std::function<void()>>;

/// Looks for where `gap` is least: on the grid and by the searches from there, of which those that end higher
/// are undone.
void seek(const std::vector<VrexContactPath>& paths, const std::function<double()>& gap,
          const Searches& searches) {
    nsContactPaths::scan(paths, gap);
    for (const auto& search : searches) {
        const Places places(paths);
        const double least = gap();
        search();
        if (!(gap() <= least)) {
            places.restore();
        }
    }
}

/// Moves points of contact to where `gap` is least, if that is less than where they are by more than a search
/// leaves open.
std::function<bool()> nearestCheck(const std::vector<VrexContactPath>& paths,
                                   const std::function<double()>& gap, const Searches& searches,
                                   double length) {
    return [=] {
        constexpr double least = 1e-7;
        const Places places(paths);
        const double before = gap();
        seek(paths, gap, searches);
        if (gap() < before - least * length) {
            return true;
        }
        places.restore();
        return false;
    };
}

std::function<void()> settling(const std::vector<VrexContactPath>& paths, std::size_t rows,
                               const VrexSolverBuilder::Rows& evaluate) {
    return [=] { nsContactPaths::settle(paths, rows, evaluate); };
}

/// From one point of contact to the other.
VrexSolverBuilder::Rows meetingRows(const VrexContactPath& first, const VrexContactPath& second,
                                    double length) {
    return [first, second, length](VrexVariable* values) {
        const Vector gap = (second.contact().point - first.contact().point) / length;
        values[0] = gap.x();
        values[1] = gap.y();
        values[2] = gap.z();
    };
}

} // namespace

VrexContactGap::Measure VrexContactGap::pathAndReach() {
    const VrexContactPath path =
        nsContactPaths::on(m_builder, m_first.core, secondShape().frame().origin, m_first.help);
    if (isBareTouch()) {
        return touch(path);
    }
    const VrexContactSigns signs = hasHelp()   ? startAtHelp(path)
                                   : m_isTouch ? startTouching(path)
                                               : startNearest(path);
    const auto gap = [path, signs, first = m_first.core, second = m_second.core] {
        return signs.gap(first, second, path.contact().point);
    };
    const std::size_t count = path.parameterCount();
    if (count > 0) {
        m_builder.add(count, stay(path, signs));
    }
    if (count > 0 && !m_isTouch && !hasHelp()) {
        const auto value = [gap] { return gap().value(); };
        const Searches searches{settling({path}, count, stay(path, signs))};
        m_builder.addCheck(nearestCheck({path}, value, searches, m_builder.length()));
    }
    return gap;
}

/// The point runs where the second core is.
VrexContactGap::Measure VrexContactGap::touch(const VrexContactPath& path) {
    const VrexSolverCore second = m_second.core;
    nsContactPaths::scan({path},
                         [&] { return reachFrom(second, path.contact().point, false).length.value(); });
    const std::size_t count = nsContactFormulas::touchRows(second, path.contact().point, false).count;
    const auto rows = [path, second, count, length = m_builder.length()](VrexVariable* values) {
        const auto place = nsContactFormulas::touchRows(second, path.contact().point, false);
        for (std::size_t i = 0; i < count; ++i) {
            values[i] = place.rows[i] / length;
        }
    };
    nsContactPaths::settle({path}, count, rows);
    m_builder.add(count, rows);
    return {};
}

VrexSolverBuilder::Rows VrexContactGap::stay(const VrexContactPath& path,
                                             const VrexContactSigns& signs) const {
    return [path, second = m_second.core, isOpposite = signs.isOpposite,
            isTouch = m_isTouch](VrexVariable* rows) {
        const VrexSolverContact contact = path.contact();
        Vector way = reachFrom(second, contact.point, isOpposite).direction;
        if (!isTouch) {
            way *= contact.weight;
        }
        for (std::size_t i = 0; i < path.parameterCount(); ++i) {
            rows[i] = way.dotProduct(contact.tangents[i]);
        }
    };
}

VrexContactSigns VrexContactGap::startAtHelp(const VrexContactPath& path) const {
    nsContactPaths::scan({path}, [&] {
        return std::abs(reachFrom(m_second.core, path.contact().point, false).length.value());
    });
    VrexContactSigns signs = signsByHelp(path.contact());
    nsContactPaths::settle({path}, path.parameterCount(), stay(path, signs));
    return signs;
}

/// A help point on the side that is turned to the other entity means the near one.
VrexContactSigns VrexContactGap::signsByHelp(const VrexSolverContact& contact) const {
    VrexContactSigns signs;
    const auto place = nsContactFormulas::valueOf(contact.point);
    if (m_second.help.point.has_value() && m_second.core.kind() == VrexSolverCore::Kind::CIRCLE) {
        const auto center = secondShape().frame().origin;
        const auto axis = secondShape().frame().axes[2];
        const auto aside = place - center - axis * axis.dotProduct(place - center);
        signs.isOpposite = aside.dotProduct(*m_second.help.point - center) < 0.0;
    }
    const auto reach = reachFrom(m_second.core, contact.point, signs.isOpposite);
    const auto way = nsContactFormulas::valueOf(reach.direction);
    const double distance = reach.length.value();
    if (m_first.help.point.has_value() && m_first.core.hasOffset()) {
        signs.first = (*m_first.help.point - place).dotProduct(way) * distance < 0.0 ? -1.0 : 1.0;
    }
    if (m_second.help.point.has_value() && m_second.core.hasOffset()) {
        const auto foot = place - way * distance;
        signs.second = (*m_second.help.point - foot).dotProduct(way) > 0.0 ? -1.0 : 1.0;
    }
    const auto kind = m_second.core.kind();
    if (kind == VrexSolverCore::Kind::PLANE || kind == VrexSolverCore::Kind::CONE) {
        signs.core = sideOf(distance);
        return signs;
    }
    // One inside the other, or both on each other's far side, or outside as far as they have room.
    const double gap = signs.gap(distance, m_first.core.offset().value(), m_second.core.offset().value());
    const bool areOutside =
        m_first.core.hasOffset() && m_second.core.hasOffset() && signs.first < 0.0 && signs.second < 0.0;
    if (gap < 0.0 && !areOutside) {
        signs.core = -1.0;
        signs.first = -signs.first;
        signs.second = -signs.second;
    }
    return signs;
}

double VrexContactGap::touchCost(const VrexContactPath& path, const VrexContactSigns& signs) const {
    const VrexSolverContact contact = path.contact();
    const auto reach = reachFrom(m_second.core, contact.point, signs.isOpposite);
    const double gap =
        signs.gap(reach.length, m_first.core.offset(), m_second.core.offset()).value() / m_builder.length();
    double cost = gap * gap;
    for (std::size_t i = 0; i < path.parameterCount(); ++i) {
        const double slope = reach.direction.dotProduct(contact.tangents[i]).value();
        cost += slope * slope;
    }
    return cost;
}

/// Where the two are nearest to touching in any way.
VrexContactSigns VrexContactGap::startTouching(const VrexContactPath& path) const {
    const auto all = VrexContactSigns::touches(m_first.core, m_second.core, m_constraint.orientation());
    VrexContactSigns best = all.front();
    double least = std::numeric_limits<double>::infinity();
    Places places({path});
    for (const VrexContactSigns& signs : all) {
        nsContactPaths::scan({path}, [&] { return touchCost(path, signs); });
        nsContactPaths::settle({path}, path.parameterCount(), stay(path, signs));
        if (const double cost = touchCost(path, signs); cost < least) {
            least = cost;
            best = signs;
            places = Places({path});
        }
    }
    places.restore();
    return best;
}

/// Of the ways to stand the one with most room where there is least.
VrexContactSigns VrexContactGap::startNearest(const VrexContactPath& path) const {
    const auto all = VrexContactSigns::candidates(m_first.core, m_second.core, m_constraint.orientation());
    VrexContactSigns best = all.front();
    double most = -std::numeric_limits<double>::infinity();
    Places places({path});
    for (const VrexContactSigns& signs : all) {
        const auto gap = [&] { return signs.gap(m_first.core, m_second.core, path.contact().point).value(); };
        seek({path}, gap, {settling({path}, path.parameterCount(), stay(path, signs))});
        if (const double here = gap(); here > most) {
            most = here;
            best = signs;
            places = Places({path});
        }
    }
    places.restore();
    return best;
}

/// Both carry a point of contact: p - q is at a right angle to both, or they are one.
VrexContactGap::Measure VrexContactGap::paths() {
    const VrexContactPath first = nsContactPaths::on(m_builder, m_first.core, {}, m_first.help);
    const VrexContactPath second = nsContactPaths::on(m_builder, m_second.core, {}, m_second.help);
    nsContactPaths::scan({first, second}, [&] {
        return nsContactFormulas::valueOf(first.contact().point - second.contact().point).magnitude();
    });
    if (m_isTouch) {
        return meet(first, second);
    }
    const auto fallback = VrexVector3DT<double>::OZ();
    const std::size_t count = first.parameterCount() + second.parameterCount();
    const auto rows = [first, second, fallback](VrexVariable* values) {
        const VrexSolverContact p = first.contact();
        const VrexSolverContact q = second.contact();
        const Vector way = reachOf(q.point - p.point, fallback).direction;
        for (std::size_t i = 0; i < first.parameterCount(); ++i) {
            *values++ = way.dotProduct(p.tangents[i]);
        }
        for (std::size_t i = 0; i < second.parameterCount(); ++i) {
            *values++ = way.dotProduct(q.tangents[i]);
        }
    };
    nsContactPaths::settle({first, second}, count, rows);
    m_builder.add(count, rows);
    const auto gap = [first, second, fallback] {
        return reachOf(second.contact().point - first.contact().point, fallback).length;
    };
    if (!hasHelp()) {
        // What crosses meets, what does not is nearest: a coarse grid tells neither.
        const Searches searches{settling({first, second}, 3, meetingRows(first, second, m_builder.length())),
                                settling({first, second}, count, rows)};
        m_builder.addCheck(nearestCheck(
            {first, second}, [gap] { return gap().value(); }, searches, m_builder.length()));
    }
    return gap;
}

VrexContactGap::Measure VrexContactGap::meet(const VrexContactPath& first, const VrexContactPath& second) {
    const auto rows = meetingRows(first, second, m_builder.length());
    nsContactPaths::settle({first, second}, 3, rows);
    m_builder.add(3, rows);
    return {};
}
