// Fault: a mishap on demand, and when it is to happen.
#pragma once

#include <cstdint>
#include <string>

namespace accessory::simulator {

enum class FaultKind {
    kDelay,  ///< the answer comes late
    kError,  ///< the operation is not carried out, and answered with a status
    kEmpty,  ///< the operation is carried out, and the reply lacks its result
    kDie,    ///< the process ends before the operation is carried out
};

struct Fault {
    /// "AcceptCall", "AppleiAP2Manager.startup", or "*" for all.
    std::string operation = "*";
    FaultKind kind = FaultKind::kError;
    int32_t value = -1;  ///< kDelay: milliseconds; kError: the status; kDie: the process's exit status
    uint32_t call = 0;   ///< only that call of the operation, from 1; 0: any
    uint32_t every = 0;  ///< only every so many calls; 0: any
};

const char* nameOf(FaultKind kind);

/// Fault::value when nobody says one.
int32_t usualValue(FaultKind kind);

/// The fault as --fault spells it.
std::string toString(const Fault& fault);

/// What "--fault" takes: operation=kind[:value][@call][/every], e.g. "SendDTMF=delay:500/3".
/// @return empty when @p fault was filled in, else what is wrong and what is expected.
std::string parseFault(const std::string& text, Fault* fault);

/// Whether there is such an operation; see Fault::operation.
bool isOperation(const std::string& operation);

}  // namespace accessory::simulator
