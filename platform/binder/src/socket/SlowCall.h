// A call that waits long for another process tells the log for whom.
#pragma once

#include <binder/Parcel.h>

#include <string>

#include "Connection.h"
#include "LongWait.h"

namespace android::runtime {

/// One call in the making: patient for as long as it takes, but not silently. Until the
/// socket's own time limit is over it costs neither memory nor a look at the clock.
///
/// A call that comes back in the answer's place is a sign of life: the socket's own time limit counts anew
/// from its end. What is counted here already, since that limit was over once or a signal came, goes on.
class SlowCall : public Patience {
  public:
    /// Is the connection's patience as long as it lives. All arguments outlive it.
    SlowCall(Connection& connection, const FrameHeader& header, const Parcel& request);
    ~SlowCall();
    SlowCall(const SlowCall&) = delete;
    SlowCall& operator=(const SlowCall&) = delete;

    void await(int fd, short events, bool lapsed) override;

    /// Tells the log if it had told it of the wait.
    void ended(status_t status) const;

  private:
    void tell();
    std::string subject() const;

    Connection& mConnection;
    Patience* const mOuter;
    const FrameHeader& mHeader;
    const Parcel& mRequest;
    LongWait mWait;
    std::string mProcess;  // as the log names it, from the first line on: it may be gone in the end
};

}  // namespace android::runtime
