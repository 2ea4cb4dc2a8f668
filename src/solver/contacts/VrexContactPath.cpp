#include "solver/contacts/VrexContactPath.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <numbers>
#include <utility>

#include <Eigen/Core>
#include <Eigen/QR>

#include "solver/contacts/VrexContactFormulas.h"
#include "solver/contacts/VrexParametricPath.h"

namespace {

using Vector = VrexSolverShape::Vector;

constexpr VrexContactPath::Range FULL_TURN{0.0, 2.0 * std::numbers::pi};

VrexContactPath onLine(VrexSolverBuilder& builder, const VrexSolverShape& shape,
                       const VrexVector3DT<double>& near) {
    const auto help = builder.addHelp({true, false}, {true, false});
    const double middle = shape.frame().coordinatesOf(near).z();
    const double reach = 4.0 * builder.length();
    help.body->setSize(0, middle, true);
    const auto contact = [&shape, parameter = help.shape] {
        const Vector axis = shape.axisZ();
        return VrexSolverContact{shape.origin() + axis * parameter->size(0), {axis, Vector()}, 1.0};
    };
    return {contact, help.body, {{middle - reach, middle + reach}}};
}

VrexContactPath onCircle(VrexSolverBuilder& builder, const VrexSolverShape& shape) {
    const auto help = builder.addHelp({true, false}, {false, false});
    const auto contact = [&shape, parameter = help.shape] {
        const VrexVariable cosine = cos(parameter->size(0));
        const VrexVariable sine = sin(parameter->size(0));
        const Vector x = shape.axisX();
        const Vector y = shape.axisY();
        return VrexSolverContact{
            shape.origin() + (x * cosine + y * sine) * shape.size(0), {y * cosine - x * sine, Vector()}, 1.0};
    };
    return {contact, help.body, {FULL_TURN}};
}

VrexContactPath onEllipse(VrexSolverBuilder& builder, const VrexSolverShape& shape,
                          const std::array<bool, 2>& isFree) {
    const auto help = builder.addHelp(isFree, {false, false});
    const auto contact = [&shape, parameter = help.shape] {
        const VrexVariable cosine = cos(parameter->size(0));
        const VrexVariable sine = sin(parameter->size(0));
        const Vector x = shape.axisX() * shape.size(0);
        const Vector y = shape.axisY() * shape.size(1);
        const Vector tangent = y * cosine - x * sine;
        return VrexSolverContact{
            shape.origin() + x * cosine + y * sine,
            {nsContactFormulas::reachOf(tangent, shape.frame().axes[1]).direction, Vector()},
            1.0};
    };
    return {contact, help.body, {FULL_TURN}};
}

VrexContactPath onCone(VrexSolverBuilder& builder, const VrexSolverShape& shape,
                       const VrexVector3DT<double>& near) {
    const auto help = builder.addHelp({true, true}, {false, true});
    const double farthest = (near - shape.frame().origin).magnitude() + 2.0 * builder.length();
    const double length = builder.length();
    const auto contact = [&shape, parameter = help.shape, length] {
        const VrexVariable cosine = cos(parameter->size(0));
        const VrexVariable sine = sin(parameter->size(0));
        const VrexVariable weight = parameter->size(1) / length;
        const Vector x = shape.axisX();
        const Vector y = shape.axisY();
        const Vector generator =
            shape.axisZ() * cos(shape.size(0)) + (x * cosine + y * sine) * sin(shape.size(0));
        return VrexSolverContact{shape.origin() + generator * (square(weight) * length),
                                 {y * cosine - x * sine, generator},
                                 weight};
    };
    return {contact, help.body, {FULL_TURN, {0.0, std::sqrt(farthest * length)}}};
}

/// The parameters of several paths in a row.
struct Slot {
    VrexSolverBody* body;
    std::size_t index;
    VrexContactPath::Range range;
};

void addFreeSlots(const VrexContactPath& path, std::vector<Slot>& slots) {
    for (std::size_t i = 0; i < path.parameterCount(); ++i) {
        if (path.isFree(i)) {
            slots.push_back({path.body, i, path.ranges[i]});
        }
    }
}

std::vector<Slot> freeSlots(const std::vector<VrexContactPath>& paths) {
    std::vector<Slot> slots;
    for (const VrexContactPath& path : paths) {
        addFreeSlots(path, slots);
    }
    return slots;
}

void set(const Slot& slot, double value) {
    slot.body->setSize(slot.index, value, slot.body->isLength(slot.index));
}

/// The place of this number on the grid: in the middle of its cell.
void setOnGrid(const std::vector<Slot>& slots, std::size_t place, std::size_t steps) {
    for (const Slot& slot : slots) {
        const double part = (static_cast<double>(place % steps) + 0.5) / static_cast<double>(steps);
        set(slot, slot.range.low + part * (slot.range.high - slot.range.low));
        place /= steps;
    }
}

/// Rows and their derivatives by the slots.
struct Linear {
    Eigen::VectorXd values;
    Eigen::MatrixXd jacobian;
};

Linear linearize(const std::vector<Slot>& slots, std::size_t rows, const VrexSolverBuilder::Rows& evaluate) {
    std::vector<VrexVariable> results(rows);
    evaluate(results.data());
    Linear linear{Eigen::VectorXd(rows), Eigen::MatrixXd(rows, slots.size())};
    for (std::size_t row = 0; row < rows; ++row) {
        const auto i = static_cast<Eigen::Index>(row);
        linear.values[i] = results[row].value();
        for (std::size_t column = 0; column < slots.size(); ++column) {
            const Slot& slot = slots[column];
            const bool isSecond = slot.index == 1 && slot.body->mobility().sizes[0];
            const std::size_t unknown = slot.body->firstUnknown() + (isSecond ? 1 : 0);
            linear.jacobian(i, static_cast<Eigen::Index>(column)) =
                std::as_const(results[row]).derivatives()[unknown];
        }
    }
    return linear;
}

void shift(const std::vector<Slot>& slots, const Eigen::VectorXd& step) {
    for (std::size_t i = 0; i < slots.size(); ++i) {
        const Slot& slot = slots[i];
        const double unit = slot.body->sizeUnit(slot.index);
        set(slot, slot.body->size(slot.index) + step[static_cast<Eigen::Index>(i)] * unit);
    }
}

/// A search that leaves the ranges by far follows what vanishes at infinity.
bool areNear(const std::vector<Slot>& slots) {
    return std::all_of(slots.begin(), slots.end(), [](const Slot& slot) {
        const double span = slot.range.high - slot.range.low;
        const double value = slot.body->size(slot.index);
        return value > slot.range.low - span && value < slot.range.high + span;
    });
}

VrexContactPath pathOn(VrexSolverBuilder& builder, const VrexSolverCore& core,
                       const VrexVector3DT<double>& near, const VrexContactHelp& help) {
    if (!core.hasShape()) {
        return nsParametricPath::on(builder, core.entity(), help);
    }
    const VrexSolverShape& shape = core.shape();
    switch (core.kind()) {
    case VrexSolverCore::Kind::LINE:
        return onLine(builder, shape, near);
    case VrexSolverCore::Kind::CIRCLE:
        return onCircle(builder, shape);
    case VrexSolverCore::Kind::ELLIPSE:
        return onEllipse(builder, shape, help.areFree(1));
    case VrexSolverCore::Kind::CONE:
        return onCone(builder, shape, near);
    default:
        return {[&shape] { return VrexSolverContact{shape.origin(), {}, 1.0}; }, nullptr, {}};
    }
}

void placeAtParameter(VrexSolverBuilder& builder, const VrexContactHelp& help, VrexContactPath& path) {
    const std::size_t count = path.parameterCount();
    const double values[] = {help.parameter->x(), help.parameter->y()};
    for (std::size_t i = 0; i < count; ++i) {
        path.body->setSize(i, values[i], path.body->isLength(i));
    }
    path.isPlaced = true;
    builder.addResult([help, count, body = path.body] {
        if (body->hasMoved()) {
            help.write({body->size(0), body->size(1)}, count);
        }
    });
}

void placeNextTo(const VrexVector3DT<double>& point, VrexContactPath& path) {
    nsContactPaths::scan({path}, [&] {
        return (nsContactFormulas::valueOf(path.contact().point) - point).magnitudeSquared();
    });
    path.isPlaced = true;
}

} // namespace

VrexContactPath nsContactPaths::on(VrexSolverBuilder& builder, const VrexSolverCore& core,
                                   const VrexVector3DT<double>& near, const VrexContactHelp& help) {
    VrexContactPath path = pathOn(builder, core, near, help);
    if (path.parameterCount() > 0 && help.parameter.has_value()) {
        placeAtParameter(builder, help, path);
    } else if (path.parameterCount() > 0 && help.point.has_value()) {
        placeNextTo(*help.point, path);
    }
    return path;
}

void nsContactPaths::scan(const std::vector<VrexContactPath>& paths, const std::function<double()>& cost) {
    std::vector<VrexContactPath> open;
    std::copy_if(paths.begin(), paths.end(), std::back_inserter(open),
                 [](const VrexContactPath& path) { return !path.isPlaced; });
    const std::vector<Slot> slots = freeSlots(open);
    if (slots.empty()) {
        return;
    }
    constexpr std::size_t stepsBySlots[] = {1, 96, 32, 11, 7};
    const std::size_t steps = stepsBySlots[slots.size()];
    std::size_t places = 1;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        places *= steps;
    }
    const VrexSolverSpace::ValuesOnly valuesOnly(slots.front().body->space());
    std::size_t best = 0;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t place = 0; place < places; ++place) {
        setOnGrid(slots, place, steps);
        const double here = cost();
        if (here < least) {
            least = here;
            best = place;
        }
    }
    setOnGrid(slots, best, steps);
}

void nsContactPaths::settle(const std::vector<VrexContactPath>& paths, std::size_t rows,
                            const VrexSolverBuilder::Rows& evaluate) {
    const std::vector<Slot> slots = freeSlots(paths);
    if (slots.empty()) {
        return;
    }
    Linear here = linearize(slots, rows, evaluate);
    constexpr int iterations = 50;
    constexpr double shortest = 1.0 / 1024.0;
    for (int i = 0; i < iterations && here.values.squaredNorm() > 0.0; ++i) {
        Eigen::VectorXd step = here.jacobian.colPivHouseholderQr().solve(-here.values);
        bool hasGained = false;
        for (double part = 1.0; step.allFinite() && !hasGained && part >= shortest; part *= 0.5) {
            shift(slots, step * part);
            Linear there = linearize(slots, rows, evaluate);
            hasGained = areNear(slots) && there.values.squaredNorm() < here.values.squaredNorm();
            hasGained ? std::swap(here, there) : shift(slots, step * -part);
        }
        if (!hasGained) {
            return;
        }
    }
}
