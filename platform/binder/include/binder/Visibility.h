// BINDER_EXPORT marks what libbinder.so offers; everything else in it is hidden.
#pragma once

/// Offered by libbinder.so.
#define BINDER_EXPORT __attribute__((visibility("default")))
