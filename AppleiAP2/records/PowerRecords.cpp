#include <accessory/PowerRecords.h>

#include <android/log.h>

#include "AppleiAP2/records/PowerTables.h"
#include "AppleiAP2/records/RecordParcel.h"

namespace accessory {

using android::Parcel;
using android::sp;

namespace {

void logEnter(const char* function) {
    __android_log_print(ANDROID_LOG_DEBUG, kiAP2NotifierUnit.tag, "IiAP2PowerUpdate %s enter", function);
}

}  // namespace

iAP2PowerUpdateMask::~iAP2PowerUpdateMask() = default;
iAP2PowerUpdate::~iAP2PowerUpdate() = default;
IiAP2PowerUpdate::IiAP2PowerUpdate() : mMask(new iAP2PowerUpdateMask) {}
IiAP2PowerUpdate::~IiAP2PowerUpdate() = default;

sp<IiAP2PowerUpdate> IiAP2PowerUpdate::FromParcel(const Parcel& parcel) {
    logEnter(__func__);
    return readRecord<PowerUpdateTable>(ACCESSORY_OPERATION(kiAP2NotifierUnit), parcel);
}

void IiAP2PowerUpdate::writeToParcel(Parcel* parcel, const sp<iAP2PowerUpdate>& record) {
    logEnter(__func__);
    writeRecord<PowerUpdateTable>(ACCESSORY_OPERATION(kiAP2NotifierUnit), parcel, *record);
}

std::string toString(const iAP2PowerUpdate& record) { return textOf<PowerUpdateTable>(record); }

}  // namespace accessory
