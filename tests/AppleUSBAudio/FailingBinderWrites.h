// FailingBinderWrites: lets Parcel::writeStrongBinder() fail, as it does only when memory has run out.
#pragma once

namespace accessory::test {

/// While one lives, every Parcel::writeStrongBinder() of this process writes nothing and returns NO_MEMORY.
/// One at a time.
class FailingBinderWrites {
  public:
    FailingBinderWrites();
    ~FailingBinderWrites();

    FailingBinderWrites(const FailingBinderWrites&) = delete;
    FailingBinderWrites& operator=(const FailingBinderWrites&) = delete;
};

}  // namespace accessory::test
