#pragma once

/// Marks what `vrex.exchange` exports; everything else stays hidden.
#define VREX_EXCHANGE_EXPORT __attribute__((visibility("default")))
