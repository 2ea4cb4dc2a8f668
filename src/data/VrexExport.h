#pragma once

/// Marks what `vrex.data3d` exports; everything else stays hidden.
#define VREX_DATA_EXPORT __attribute__((visibility("default")))
