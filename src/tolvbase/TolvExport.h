#pragma once

/// Marks what `tolvbase` exports; everything else stays hidden.
#define TOLV_EXPORT __attribute__((visibility("default")))
