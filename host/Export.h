#pragma once

/// Marks what a shared library of the contract shows to the others; everything else is hidden.
#define QUOR_EXPORT __attribute__((visibility("default")))
