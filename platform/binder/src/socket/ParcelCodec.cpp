#include "ParcelCodec.h"

#include <binder/BpBinder.h>

#include <algorithm>
#include <cstring>

#include "../FlatObject.h"
#include "../Log.h"
#include "../OutOfMemory.h"
#include "../ParcelAccess.h"
#include "../ParcelLayout.h"
#include "Connection.h"
#include "Node.h"
#include "SocketRemote.h"

namespace android::runtime {

namespace {

status_t checkSendable(const Parcel& parcel) {
    if (parcel.errorCheck() != NO_ERROR) return parcel.errorCheck();
    const size_t size = ParcelAccess::size(parcel);
    if (size <= kMaxTransaction) return NO_ERROR;
    BINDER_LOGE("a parcel of %zu bytes is refused; %zu are the most", size, kMaxTransaction);
    return FAILED_TRANSACTION;
}

/// Appending a part that is no whole number of cells may have led to this.
status_t refuseUnaligned(size_t offset) {
    BINDER_LOGE("a parcel with an object at byte %zu is refused: objects lie at whole cells", offset);
    return BAD_VALUE;
}

}  // namespace

EncodedParcel::EncodedParcel(const Parcel& parcel, Peer& receiver)
    : mParcel(parcel), mReceiver(receiver), mStatus(checkSendable(parcel)) {
    if (mStatus != NO_ERROR || parcel.objectsCount() == 0) return;
    mStatus = unlessExhausted([this] { return encodeObjects(); });
}

EncodedParcel::~EncodedParcel() {
    for (const Token& token : mLent)
        mReceiver.takeBack(token);
    for (const auto& [owner, token] : mPassedOn)
        owner->tellNotPassedOn(token, mReceiver.id());
}

status_t EncodedParcel::encodeObjects() {
    mBlanked.assign(mParcel.data(), mParcel.data() + ParcelAccess::size(mParcel));
    for (const ParcelAccess::Object& object : ParcelAccess::objects(mParcel)) {
        if (object.offset % kCellSize != 0) return refuseUnaligned(object.offset);
        std::memset(&mBlanked[object.offset], 0, sizeof(flat_binder_object));
        if (object.binder != nullptr) {
            const status_t status = encodeBinder(object.offset, object.binder);
            if (status != NO_ERROR) return status;
        } else {
            mRecords.push_back({static_cast<uint32_t>(object.offset), ObjectKind::kDescriptor, {}, {}});
            mFds.push_back(object.fd);
        }
    }
    if (mFds.size() <= kMaxDescriptors) return NO_ERROR;
    BINDER_LOGE("a parcel of %zu descriptors is refused; %zu are the most", mFds.size(), kMaxDescriptors);
    return FAILED_TRANSACTION;
}

/// What is lent or passed on is noted down for sure: there is room for it before anybody is told.
status_t EncodedParcel::encodeBinder(size_t offset, const sp<IBinder>& binder) {
    const size_t most = mParcel.objectsCount();
    mRecords.reserve(most);
    ObjectRecord record;
    record.offset = static_cast<uint32_t>(offset);
    if (BBinder* const local = binder->localBinder()) {
        record.owner = Node::instance().id;
        mLent.reserve(most);
        const status_t status = mReceiver.lend(local, &record.token);
        if (status != NO_ERROR) return status;
        if (record.token) mLent.push_back(record.token);
    } else if (BpBinder* const proxy = binder->remoteBinder()) {
        const auto& remote = static_cast<SocketRemote&>(proxy->remoteObject());
        record.owner = remote.peer().id();
        record.token = remote.token();
        mPassedOn.reserve(most);
        remote.peer().tellPassingOn(remote.token(), mReceiver.id());
        mPassedOn.emplace_back(remote.peer().shared_from_this(), remote.token());
    }
    mRecords.push_back(record);
    return NO_ERROR;
}

void EncodedParcel::describe(FrameHeader* header) const {
    header->dataSize = static_cast<uint32_t>(ParcelAccess::size(mParcel));
    header->objectCount = static_cast<uint32_t>(mRecords.size());
    header->descriptorCount = static_cast<uint8_t>(mFds.size());
}

void EncodedParcel::sent() {
    mLent.clear();
    mPassedOn.clear();
}

namespace {

sp<IBinder> objectOf(const ObjectRecord& record, Peer& sender) {
    Node& node = Node::instance();
    if (!record.owner || !record.token) return nullptr;
    if (record.owner == node.id) return node.comeHome(record.token, sender);
    // A reference that was received and not noted down would never be given back.
    return patiently([&] { return node.peers.get(record.owner)->receive(record.token); });
}

}  // namespace

void giveBack(const ObjectRecord& record, Peer& sender) {
    if (record.kind == ObjectKind::kBinder) objectOf(record, sender);
}

void decode(Frame* frame, Parcel* parcel, Peer& sender) {
    const FrameHeader& header = frame->header;
    std::vector<ObjectRecord> records;
    patiently([&] { records.reserve(header.objectCount); });
    for (size_t i = 0; i < header.objectCount; ++i) {
        records.push_back(recordAt(header, frame->body.bytes(), i));
    }
    const size_t capacity = frame->body.capacity();
    ParcelAccess::adopt(*parcel, frame->body.release(), header.dataSize, capacity);
    auto nextFd = frame->fds.begin();
    for (const ObjectRecord& record : records) {
        if (record.kind == ObjectKind::kDescriptor) {
            ParcelAccess::addDescriptor(*parcel, record.offset, std::exchange(*nextFd++, -1));
        } else {
            ParcelAccess::addBinder(*parcel, record.offset, objectOf(record, sender));
        }
    }
}

}  // namespace android::runtime
