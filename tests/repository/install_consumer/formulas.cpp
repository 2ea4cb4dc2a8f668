// Prints a hash of the bits that the inlined formulas give, one line a formula: however a user compiles, the
// lines are the same.

#include <bit>
#include <cstdint>
#include <cstdio>

#include "vrex.data3d.h"

namespace {

class BitHash {
public:
    void add(double value) { m_hash = (m_hash ^ std::bit_cast<std::uint64_t>(value)) * 0x100000001B3U; }
    void add(const VrexVector3DT<double>& v) {
        add(v.x());
        add(v.y());
        add(v.z());
    }
    void add(const VrexVariable& variable) {
        add(variable.value());
        for (const auto& entry : variable.derivatives()) {
            add(entry.value);
        }
    }
    void print(const char* formula) const {
        std::printf("%s %016llx\n", formula, static_cast<unsigned long long>(m_hash));
    }

private:
    std::uint64_t m_hash = 0xCBF29CE484222325U;
};

/// Numbers of full precision in [1, 2), where a product that is not rounded tells.
class Numbers {
public:
    double next() {
        m_state = m_state * 6364136223846793005U + 1442695040888963407U;
        return std::bit_cast<double>(0x3FF0000000000000U | (m_state >> 12U));
    }
    VrexVector3DT<double> vector() {
        const double x = next();
        const double y = next();
        return {x, y, next()};
    }
    VrexVariable variable(std::uint64_t key) {
        VrexVariable made(next());
        made.derivatives().set(key, next());
        return made;
    }

private:
    std::uint64_t m_state = 1;
};

} // namespace

int main() {
    Numbers numbers;
    BitHash dot, cross, scalar;
    for (int i = 0; i < 100; ++i) {
        const VrexVector3DT<double> a = numbers.vector();
        const VrexVector3DT<double> b = numbers.vector();
        dot.add(a.dotProduct(b));
        cross.add(a.crossProduct(b));
        const VrexVariable p = numbers.variable(1);
        const VrexVariable q = numbers.variable(1);
        scalar.add(p * q + p / q);
    }
    dot.print("dot");
    cross.print("cross");
    scalar.print("scalar");
}
