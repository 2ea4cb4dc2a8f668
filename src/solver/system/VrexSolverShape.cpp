#include "solver/system/VrexSolverShape.h"

namespace {

using Vector = VrexSolverShape::Vector;

Vector constant(const VrexVector3DT<double>& v) { return {v.x(), v.y(), v.z()}; }

void addDerivative(Vector& v, std::size_t unknown, const VrexVector3DT<double>& derivative) {
    v.x().derivatives().append(unknown, derivative.x());
    v.y().derivatives().append(unknown, derivative.y());
    v.z().derivatives().append(unknown, derivative.z());
}

/// A turn about each axis that is free moves `arm`, which stands at the end of the translations' unknowns.
void addTurns(Vector& v, const VrexSolverBody& body, std::size_t unknown, const VrexVector3DT<double>& arm) {
    for (std::size_t i = 0; i < 3; ++i) {
        if (body.mobility().rotations[i]) {
            addDerivative(v, unknown++, body.frame().axes[i].crossProduct(arm));
        }
    }
}

std::size_t translationCount(const VrexSolverBody& body) {
    std::size_t count = 0;
    for (const bool isFree : body.mobility().translations) {
        count += isFree ? 1 : 0;
    }
    return count;
}

} // namespace

Vector VrexSolverShape::point(const VrexVector3DT<double>& local) const {
    const VrexVector3DT<double> arm = m_body->frame().vectorOf(local);
    Vector result = constant(m_body->frame().origin + arm);
    if (!m_body->space().hasDerivatives()) {
        return result;
    }
    std::size_t unknown = m_body->firstUnknown();
    for (std::size_t i = 0; i < 3; ++i) {
        if (m_body->mobility().translations[i]) {
            addDerivative(result, unknown++, m_body->frame().axes[i] * m_body->length());
        }
    }
    addTurns(result, *m_body, unknown, arm);
    return result;
}

Vector VrexSolverShape::vector(const VrexVector3DT<double>& local) const {
    const VrexVector3DT<double> v = m_body->frame().vectorOf(local);
    Vector result = constant(v);
    if (!m_body->space().hasDerivatives()) {
        return result;
    }
    addTurns(result, *m_body, m_body->firstUnknown() + translationCount(*m_body), v);
    return result;
}

VrexVariable VrexSolverShape::size(std::size_t index) const {
    VrexVariable result(sizeValue(index));
    if (m_hasOwnSizes || !m_body->mobility().sizes[index] || !m_body->space().hasDerivatives()) {
        return result;
    }
    std::size_t unknown = m_body->firstUnknown() + m_body->unknownCount() - 1;
    if (index == 0 && m_body->mobility().sizes[1]) {
        --unknown;
    }
    result.derivatives().append(unknown, m_body->sizeUnit(index));
    return result;
}
