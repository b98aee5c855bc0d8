// ACCESSORY_EXPORT marks what libaccessory.so offers; everything else in it is hidden.
#pragma once

#define ACCESSORY_EXPORT __attribute__((visibility("default")))
