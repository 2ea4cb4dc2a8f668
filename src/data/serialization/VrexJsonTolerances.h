#pragma once

class LumoJson;

/// Hidden: the tolerances of a document, without which it is none.
namespace nsJsonTolerances {

/// Throws `std::runtime_error` where there is no number.
double linear(const LumoJson& root);
double angular(const LumoJson& root);

} // namespace nsJsonTolerances
