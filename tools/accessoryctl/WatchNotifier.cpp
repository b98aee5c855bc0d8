#include "tools/accessoryctl/WatchNotifier.h"

namespace accessory::ctl {

android::status_t WatchNotifier::onTransact(uint32_t code, const android::Parcel& data,
                                            android::Parcel* reply, uint32_t flags) {
    const tools::Operation* const operation = tools::servedOperation(mNotifier, code);
    if (operation == nullptr) return BBinder::onTransact(code, data, reply, flags);
    try {
        mListener({mNotifier, *operation, operation->decodeRequest(data), {}});
    } catch (const tools::UndecodableParcel& error) {
        mListener({mNotifier, *operation, {}, error.what()});
        return error.status;
    }
    return reply->writeInt32(0);
}

}  // namespace accessory::ctl
