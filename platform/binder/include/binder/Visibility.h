// BINDER_EXPORT marks what libbinder.so offers; everything else in it is hidden.
#pragma once

#define BINDER_EXPORT __attribute__((visibility("default")))
