// ACCESSORY_EXPORT marks what libaccessory.so offers; everything else in it is hidden. ACCESSORY_HIDDEN takes
// a part of an offered class out again.
#pragma once

/// Offered by libaccessory.so.
#define ACCESSORY_EXPORT __attribute__((visibility("default")))
/// Not offered, although it belongs to something that is.
#define ACCESSORY_HIDDEN __attribute__((visibility("hidden")))
