#pragma once

/// Marks what `vrex.solver` exports; everything else stays hidden.
#define VREX_SOLVER_EXPORT __attribute__((visibility("default")))
