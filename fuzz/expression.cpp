// Reads arbitrary bytes as an expression. What parses must evaluate in each way, to the same each time,
// print, and differentiate twice; what is refused must have a message that holds the text.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "data/VrexExprParser.h"
#include "data/VrexVar.h"
#include "data/VrexVariable.h"

namespace {

void require(bool isTrue) {
    if (!isTrue) {
        std::abort();
    }
}

bool isSame(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

void evaluate(const VrexExpr& tree) {
    const double value = tree.eval();
    require(isSame(value, tree.eval()));
    const VrexVariable first = tree.evalVar();
    const VrexVariable second = tree.evalVar();
    require(isSame(first.value(), second.value()));
    require(first.derivatives().size() == second.derivatives().size());
    require(tree.evalBool() == tree.evalBool());
}

void printAgain(const VrexExpr& tree, const std::vector<std::shared_ptr<VrexVar>>& variables) {
    const std::string printed = tree.toString();
    require(printed.size() <= tree.quoted().size() && printed.size() <= tree.quotedAdd().size());
    // Not all that prints parses, two signs in a row for one, nor to the same tree.
    if (const auto again = VrexExprParser(printed, variables).parse()) {
        evaluate(*again);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::shared_ptr<VrexVar>> variables{VrexVar::create("a", 1.0), VrexVar::create("b", 2.0),
                                                    VrexVar::create("t", 0.5)};
    for (std::size_t i = 0; i < variables.size(); ++i) {
        variables[i]->derivatives().set(i, 1.0);
    }
    VrexExprParser parser(std::string(reinterpret_cast<const char*>(data), size), variables);
    const std::shared_ptr<VrexExpr> tree = parser.parse();
    require((tree == nullptr) == !parser.getError().empty());
    if (tree == nullptr) {
        require(parser.getError().size() > size);
        return 0;
    }
    evaluate(*tree);
    printAgain(*tree, variables);
    std::shared_ptr<VrexExpr> derivative = tree;
    for (int order = 0; order < 2; ++order) {
        derivative = derivative->deriv(variables[2]);
        require(derivative != nullptr);
        evaluate(*derivative);
    }
    return 0;
}
