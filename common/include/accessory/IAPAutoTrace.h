// IAPAutoTrace: brackets the run of a function in the log.
#pragma once

#include <accessory/Export.h>

#include <string>

/// Made as a local at the top of a function: logs "[file][function] [--IN--]" at DEBUG, and when it goes
/// out of scope, however the function is left, "[file][function] [--OUT--]".
class ACCESSORY_EXPORT IAPAutoTrace {
  public:
    /// @param tag      log tag; not copied, must outlive the object.
    /// @param file     source unit of the traced function; copied.
    /// @param function name of the traced function; copied.
    IAPAutoTrace(const char* tag, const std::string& file, const std::string& function);
    ~IAPAutoTrace();

    IAPAutoTrace(const IAPAutoTrace&) = delete;
    IAPAutoTrace& operator=(const IAPAutoTrace&) = delete;

  private:
    const char* const mTag;
    const std::string mFile;
    const std::string mFunction;
};
