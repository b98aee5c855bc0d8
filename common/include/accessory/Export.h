// ACCESSORY_EXPORT marks what libaccessory.so offers; everything else in it is hidden. ACCESSORY_HIDDEN takes
// a part of an offered class out again.
#pragma once

#define ACCESSORY_EXPORT __attribute__((visibility("default")))
#define ACCESSORY_HIDDEN __attribute__((visibility("hidden")))
