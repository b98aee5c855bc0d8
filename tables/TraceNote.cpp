// The note that a tracing runtime looks for by its name and puts into its captures. Other runtimes never ask
// for it.
#include <accessory/Export.h>

#include "tables/Digest.h"
#include "tables/Note.h"

namespace {

using Note = decltype(accessory::wire::tablesNote(0));

}  // namespace

extern "C" ACCESSORY_EXPORT const Note binder_trace_note;
extern "C" constexpr Note binder_trace_note = accessory::wire::tablesNote(accessory::wire::tablesDigest());
