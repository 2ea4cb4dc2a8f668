#include "data/graph/VrexVertex.h"

namespace {

/// The operation changes nothing; its slot is not const, and classes of users override it as it stands.
VrexVertexType typeOf(const VrexVertex& vertex) { return const_cast<VrexVertex&>(vertex).getVertexType(); }

} // namespace

VrexVertex::~VrexVertex() = default;

bool operator==(const VrexVertex& left, const VrexVertex& right) {
    return typeOf(left) == typeOf(right) && left.getID() == right.getID();
}
